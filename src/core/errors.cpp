#include "core/errors.h"

#include <new>

namespace quillmark {

ReadError::ReadError(std::size_t position, std::size_t wanted)
    : Failure(ErrorNumber::readPastEnd, "lecture de " + std::to_string(wanted) +
                                            " octets au-delà de la fin des données, position " +
                                            std::to_string(position)) {}

void failOnFile(ErrorNumber number, const std::string& file) {
    const auto what = [number] {
        switch (number) {
            case ErrorNumber::fileMissing:
                return "fichier introuvable";
            case ErrorNumber::diskFull:
                return "disque plein";
            case ErrorNumber::permission:
                return "permission refusée";
            case ErrorNumber::path:
                return "chemin d'accès introuvable";
            case ErrorNumber::memory:
                return "mémoire insuffisante";
            case ErrorNumber::overflow:
                return "fichier trop grand";
            default:
                return "erreur de périphérique";
        }
    };
    throw Failure(number, std::string(what()) + " : " + file);
}

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
