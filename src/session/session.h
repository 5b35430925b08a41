// The life of the one document: opening, saving, closing, editing, undoing, and the questions in
// between. Windows forward their commands to it and observe its signals.
//
// Long work runs through `Tasks`, so a command may end after its call returned; `then` tells how.
// While a command is under way `busy()` is true and other commands do nothing.
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "core/dialogues.h"
#include "core/document.h"
#include "core/errors.h"
#include "core/journal.h"
#include "core/profile.h"
#include "core/settings_table.h"
#include "core/signal.h"
#include "core/tasks.h"
#include "core/translation.h"
#include "session/change.h"
#include "session/recent_files.h"
#include "session/text_pane.h"
#include "session/text_view.h"
#include "session/undo_history.h"
#include "text/backups.h"
#include "text/code_pages.h"

namespace quillmark {

struct SessionServices {
    Dialogues& dialogues;
    Tasks& tasks;
    Settings& settings;
    const Traduction& traduction;           // its content changes with the language
    std::function<const Profile&()> types;  // `MPCTypes.txt`, read when first asked for
    TextBackups& backups;
    // Where backups are written; empty while another process owns the file.
    std::filesystem::path backupFile = {};
};

// What stands beside the content of the document.
struct SessionFacts {
    bool hasDocument = false;
    bool isNew = false;                // from New, never saved
    bool OuvertEnTexte = false;        // opened from text, or saved as text
    bool utf8 = false;                 // the text file is held in UTF-8
    bool hasMagic = true;              // false: the file opened wasn't a TYP file
    bool incompleteText = false;       // saved as text that couldn't hold all of the document
    std::filesystem::path FichierTYP;  // absolute; empty without a file
    std::size_t TailleFichier = 0;     // bytes
    // The file that was opened, as long as it holds what couldn't be read of it; asked before that
    // is lost, also when the document has been saved elsewhere meanwhile.
    std::filesystem::path damagedFile;

    [[nodiscard]] std::string NomFichier() const;
    [[nodiscard]] std::string DossierFichier() const;
};

enum class HeaderField : std::uint8_t { FID, ProductCode };

class Session {
  public:
    // True when the command was carried out, false when it was cancelled, refused or failed.
    using Then = std::function<void(bool done)>;

    // `document` is the one that all windows show; its address stays good.
    Session(Document& document, SessionServices services);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void setTextPane(TextPane* pane);

    // --- What stands ---
    [[nodiscard]] const Document& document() const { return document_; }
    [[nodiscard]] const SessionFacts& facts() const { return facts_; }
    // There is something that a close would lose.
    [[nodiscard]] bool changed() const;
    // Edited since it was opened, made or saved: what the word in the title says.
    [[nodiscard]] bool showsModified() const;
    [[nodiscard]] bool busy() const { return busy_; }
    // Entries of the open, whose lines are those of the file, and those of the last Apply, whose
    // lines are those of the text view.
    [[nodiscard]] const Journal& openJournal() const { return openJournal_; }
    [[nodiscard]] const Journal& applyJournal() const { return applyJournal_; }
    // The view still holds the text that the second is about.
    [[nodiscard]] bool showsApplied() const { return showsApplied_; }
    // Another number whenever either is another one, or the text is.
    [[nodiscard]] unsigned journalVersion() const { return journalVersion_; }
    [[nodiscard]] int errorCount() const {
        return openJournal_.errorCount() + applyJournal_.errorCount();
    }
    [[nodiscard]] int warningCount() const {
        return openJournal_.warningCount() + applyJournal_.warningCount();
    }
    [[nodiscard]] const TextView& textView() const { return view_; }
    [[nodiscard]] bool textEdited() const;
    // `MPCTypes.txt`, read when first asked for.
    [[nodiscard]] const Profile& types() const { return services_.types(); }
    [[nodiscard]] bool canUndo() const { return facts_.hasDocument && undo_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return facts_.hasDocument && undo_.canRedo(); }
    [[nodiscard]] RecentFiles& recentFiles() { return recent_; }

    Signal<Change> documentChanged;
    Signal<> factsChanged;     // title, journal, changed mark, undo, busy, recent files
    Signal<std::string> told;  // one line for the status bar
    Signal<> backupKept;       // there is another element in the backups

    // --- Documents ---
    void mnuNouveau_Click(Then then = {});
    // `mnuOuvrirTYP_Click` and Ctrl+O: a TYP file first, a second filter for both kinds.
    void mnuouvrir_Click(Then then = {});
    void mnuouvrirtxt_click(bool utf8, Then then = {});
    // A file of the command line, a drop or the recent files.
    void ouvrir(const std::filesystem::path& file, Then then = {});
    void mnufermer_Click(Then then = {});
    void mnuEnregistrer_Click(Then then = {});
    void mnuEnregistrerTyp_Click(Then then = {});
    void mnuEnregistrerTxt_Click(bool utf8, Then then = {});
    // Any way of closing the window; `then(true)` lets it close.
    void Form_QueryUnload(Then then);

    // --- Edits ---
    // Each edit first deals with edits that stand in the text view, and is one undo step.
    void deleteObject(const ObjectRef& object, Then then = {});
    void undo();
    void redo();
    // An edit by a window: `edit` changes the document it is given. Nothing happens when it leaves
    // the document as it was or throws. Edits of one non-empty `merge` in a row are one step.
    void edit(const Change& change, const std::function<void(Document&)>& edit,
              const std::string& merge = {});

    // The field's text as the user types it; the check comes with `leaveHeaderField`.
    void typeHeaderField(HeaderField field, const std::string& text);
    // False when the text was refused: it is told, and the field is emptied.
    bool leaveHeaderField(HeaderField field);
    // Choices in a row are one step, until `endStep`.
    void setCodePage(int CodePage, Then then = {});
    void setHeaderSize(int bytes, Then then = {});
    // The user left a control: what comes next is a step of its own.
    void endStep();

    // --- Text view ---
    // `cmdvoirtxt_Click` and its twin: the whole document, or the object that is selected.
    void showWholeDocument(Then then = {});
    void showObject(const ObjectRef& object, Then then = {});
    // A row was selected: marks its section, or shows it, by the switch of the view.
    void selectInText(const ObjectRef& object, Then then = {});
    void cmdAppliquerModif_Click(Then then = {});
    // The question before anything that replaces the view's text: apply, drop or stay.
    void settleEdits(Then then);
    // The control came into sight.
    void refreshText();
    // What the text is made by changed: it is made anew, at the latest when it comes into sight.
    void settingsChanged();

    // --- Backups ---
    // Keeps the whole document's text as it stands, edits in the view included, when it is news;
    // made and written behind. Called after an open and after each change, and by a timer some
    // time after the last key typed in the view.
    void sauvegardertexte();
    // The same, at once and in place: the process is about to be ended.
    void backUpNow();

  private:
    struct Running;
    struct Loaded;
    // How an Apply ended.
    struct Applied {
        bool done = false;        // false: refused, cancelled or failed; nothing changed
        std::size_t entries = 0;  // of the journal
    };
    // What a save has to know of the file it began with.
    struct FileStamp {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type time;
        bool operator==(const FileStamp&) const = default;
    };

    // Commands: `body` calls what it is given exactly once, at its end.
    void command(Then then, const std::function<void(Then)>& body);
    // Runs `work` as a task; `done` gets its result, or nothing when it was cancelled. A failure
    // goes to `failed`, which is called within a catch block.
    template <typename Result>
    void inBackground(std::string label, std::function<Result(Progress&)> work,
                      std::function<void(std::optional<Result>)> done, std::function<void()> failed,
                      bool cancellable = true);

    void chooseAndOpen(bool text, TextFileEncoding encoding, const Then& then);
    void open(const std::filesystem::path& file, TextFileEncoding encoding, const Then& then);
    void load(const std::filesystem::path& file, TextFileEncoding encoding, const Then& then);
    void put(Loaded loaded, const std::filesystem::path& file);
    // What stopped an open, from within a catch block.
    void tellUnopened(const std::filesystem::path& file);
    // A fresh document; only the code page is kept.
    void wipe();
    void askToSave(const Then& then);

    void saveOwn(const Then& then);
    // Into the document's own file, or into one asked for with a name proposed.
    void saveTyp(const std::optional<std::string>& proposed, const Then& then);
    void saveText(bool askForName, bool utf8, const Then& then);
    // Header fields and edits of the view come first in every save.
    void beforeSave(const Then& then);
    // `chosen`: in a dialog, which asked before replacing a file.
    [[nodiscard]] bool mayLose(const std::filesystem::path& file, bool chosen);
    struct ComposedTyp;
    void writeTyp(const std::filesystem::path& file, const Then& then);
    void putWrittenTyp(ComposedTyp& composed, const std::filesystem::path& file,
                       const FileStamp& stamp);
    struct ComposedText;
    void askAndWriteText(const std::shared_ptr<ComposedText>& composed, bool askForName, bool utf8,
                         const Then& then);
    [[nodiscard]] std::string savingLabel(const std::filesystem::path& file) const;
    // Replaces the file, which isn't to be cut short; `done` is called when it stands.
    void replaceBehind(const std::filesystem::path& file, std::shared_ptr<const Bytes> content,
                       std::function<void(const FileStamp&)> done, std::function<void()> failed);
    void afterSave(const std::filesystem::path& file, const FileStamp& stamp);
    [[nodiscard]] bool changedOnDisk() const;
    [[nodiscard]] static std::optional<FileStamp> stampOf(const std::filesystem::path& file);

    bool commit(const Change& change, const std::function<void(Document&)>& edit,
                const std::string& merge);
    // `ready`: the text of the whole document as it stands, where somebody made it already.
    // `reveal`: the text view scrolls to the object that the change selects.
    void tellChange(const Change& change, std::optional<GeneratedText> ready = std::nullopt,
                    bool reveal = true);
    void step(bool back);
    [[nodiscard]] ObjectRef selectAfter(const UndoHistory::Step& step, bool back) const;
    void putHeaderText(HeaderField field, const std::string& text);
    [[nodiscard]] bool acceptHeaderField(HeaderField field);

    void settle(const Then& then);
    // The same for a command on an object, which may stand elsewhere after an Apply.
    void settleFor(const ObjectRef& object, const std::function<void(bool, ObjectRef)>& then);
    void dropEdits();
    void tellFaults(const Applied& applied);
    void tellUnforeseen(const ErrorFacts& facts, const char* procedure);
    void apply(const std::function<void(const Applied&)>& then);
    struct Parsed;
    void putApplied(Applied& applied, Parsed parsed, const ParseTarget& target);
    [[nodiscard]] GeneratedText generate(const Document& document, const TextView& view) const;
    [[nodiscard]] std::optional<SourceComments> sourceComments() const;
    [[nodiscard]] GeneratorContext generatorContext() const;
    [[nodiscard]] bool showsWholeDocument() const;
    void showText(GeneratedText generated);
    void markSection(const ObjectRef& object);

    struct BackupJob;
    // What `sauvegardertexte` does once it isn't held back.
    void keepState();
    [[nodiscard]] BackupJob backupJob() const;
    [[nodiscard]] static std::string textOf(BackupJob& job);
    [[nodiscard]] bool writesBackups() const;
    void keepBackup(const std::string& name, const std::string& text,
                    TextBackups::Prepared prepared);
    void tellUnwritten();
    [[nodiscard]] std::string backupWord() const;

    Document& document_;
    SessionServices services_;
    TextPane* pane_ = nullptr;
    SessionFacts facts_;
    TextView view_;
    UndoHistory undo_;
    RecentFiles recent_;
    Journal openJournal_;
    Journal applyJournal_;
    unsigned journalVersion_ = 0;
    bool showsApplied_ = false;
    std::optional<FileStamp> stamp_;
    DateTime textTime_;          // of the open or save, for the comment lines above a text
    bool replaceEdits_ = false;  // the edits in the view are in the document by now
    // By HeaderField: what was last accepted, while something was typed since.
    std::array<std::optional<std::string>, 2> headerAccepted_{};
    TextSettings textSettings_;  // that the texts of now were made with
    // The text of the whole document as it stands, made ahead; gone with the next change.
    std::optional<GeneratedText> ready_;
    bool backupRuns_ = false;   // one of the document, not of typed text
    bool backupAgain_ = false;  // it changed since
    // Held by who writes to the backup file, which may be the thread behind.
    std::shared_ptr<std::mutex> backupFile_ = std::make_shared<std::mutex>();
    bool busy_ = false;
    // Gone with the session: tasks that outlive it look here first.
    std::shared_ptr<char> alive_ = std::make_shared<char>();
};

}  // namespace quillmark
