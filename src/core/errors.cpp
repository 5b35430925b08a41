#include "core/errors.h"

#include <new>

namespace quillmark {

ReadError::ReadError(std::size_t position, std::size_t wanted)
    : Failure(ErrorNumber::readPastEnd, "lecture de " + std::to_string(wanted) +
                                            " octets au-delà de la fin des données, position " +
                                            std::to_string(position)) {}

ErrorFacts currentErrorFacts() {
    try {
        throw;
    } catch (const Failure& failure) {
        return {failure.number(), failure.what()};
    } catch (const std::bad_alloc&) {
        return {ErrorNumber::memory, "mémoire insuffisante"};
    } catch (const std::length_error&) {
        return {ErrorNumber::memory, "mémoire insuffisante"};
    } catch (const std::out_of_range& error) {
        return {ErrorNumber::index, error.what()};
    } catch (const std::exception& error) {
        return {ErrorNumber::other, error.what()};
    } catch (...) {
        return {ErrorNumber::other, "erreur inconnue"};
    }
}

}  // namespace quillmark
