#include "core/errors.h"

#include <new>
#include <system_error>

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

namespace {

ErrorNumber numberOf(const std::error_code& code) {
    if (code == std::errc::no_such_file_or_directory) {
        return ErrorNumber::fileMissing;
    }
    if (code == std::errc::permission_denied || code == std::errc::operation_not_permitted ||
        code == std::errc::read_only_file_system) {
        return ErrorNumber::permission;
    }
    if (code == std::errc::no_space_on_device) {
        return ErrorNumber::diskFull;
    }
    if (code == std::errc::not_a_directory || code == std::errc::filename_too_long) {
        return ErrorNumber::path;
    }
    if (code == std::errc::io_error || code == std::errc::no_such_device) {
        return ErrorNumber::device;
    }
    return code == std::errc::not_enough_memory ? ErrorNumber::memory : ErrorNumber::other;
}

}  // namespace

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
    } catch (const std::overflow_error& error) {
        return {ErrorNumber::overflow, error.what()};
    } catch (const std::range_error& error) {
        return {ErrorNumber::overflow, error.what()};
    } catch (const std::invalid_argument& error) {
        return {ErrorNumber::conversion, error.what()};
    } catch (const std::system_error& error) {
        return {numberOf(error.code()), error.what()};
    } catch (const std::exception& error) {
        return {ErrorNumber::other, error.what()};
    } catch (...) {
        return {ErrorNumber::other, "erreur inconnue"};
    }
}

std::string unforeseenText(const ErrorFacts& facts, const std::string& procedure,
                           const std::string& place) {
    return "Error " + std::to_string(static_cast<int>(facts.number)) + " (" + facts.description +
           ") in procedure " + procedure + " of " + place;
}

}  // namespace quillmark
