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
    // The language file `Langues/<langue>.lng` under `programFolder`; the defaults without it.
    Traduction(const std::filesystem::path& programFolder, std::string_view langue);

    [[nodiscard]] std::string Trad(std::string_view section, std::string_view defaut,
                                   std::string_view cle) const;

  private:
    std::shared_ptr<const Profile> file_;
};

[[nodiscard]] bool LangueExiste(const std::filesystem::path& programFolder, std::string_view nom);
// Base names of all language files, in the order of the directory.
[[nodiscard]] std::vector<std::string> ListeLangues(const std::filesystem::path& programFolder);

}  // namespace quillmark
