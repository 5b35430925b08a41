// Texts of the user interface: French is built in, any other language is a file.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

class Profile;

// The built-in language's name in settings, without cedilla.
inline constexpr std::string_view kFrancais = "Francais";

// The texts of one language. A text is asked for by section, French default and key together.
class Traduction {
  public:
    // Built-in French.
    Traduction();
    // The language file `Langues/<langue>.lng` under the first of `folders` that has it (see
    // Folders::dataFolders); the defaults without it. Read once, whatever happens to the file.
    Traduction(const std::vector<std::filesystem::path>& folders, std::string_view langue);

    // The name of the file that is read, `kFrancais` without one.
    [[nodiscard]] const std::string& Langue() const { return langue_; }
    [[nodiscard]] std::string Trad(std::string_view section, std::string_view defaut,
                                   std::string_view cle) const;

  private:
    std::string langue_{kFrancais};
    std::shared_ptr<const Profile> file_;
};

// Found without regard to case. A name that could lead out of the folder is never a language.
[[nodiscard]] bool LangueExiste(const std::vector<std::filesystem::path>& folders,
                                std::string_view nom);
// Base names of the language files of all folders, each once, sorted by name.
[[nodiscard]] std::vector<std::string> ListeLangues(
    const std::vector<std::filesystem::path>& folders);

}  // namespace quillmark
