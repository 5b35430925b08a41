// What the commands of the main window do: they forward to the session or open a window.
#include <QAction>
#include <QLocale>
#include <QSplitter>
#include <QStackedWidget>

#include "core/paths.h"
#include "ui/document_card_panel.h"
#include "ui/frm_about.h"
#include "ui/frm_erreur.h"
#include "ui/frm_labels.h"
#include "ui/frm_langues.h"
#include "ui/frm_main.h"
#include "ui/frm_palette.h"
#include "ui/frm_preferences.h"
#include "ui/frm_recherche.h"
#include "ui/frm_sauvegardetxt.h"
#include "ui/frm_update.h"
#include "ui/guard.h"
#include "ui/icon_sheet_panel.h"
#include "ui/main_status_bar.h"
#include "ui/object_lists_panel.h"
#include "ui/preview_panel.h"
#include "ui/qt_text.h"
#include "ui/text_panel.h"
#include "ui/welcome_page.h"
#include "views/language_choice.h"

namespace quillmark {

void frmMain::connectCommands() {
    Session& session = context_.session;
    menus_.on("mnuNouveau", [&session] { session.mnuNouveau_Click(); });
    menus_.on("mnuOuvrirTYP", [&session] { session.mnuouvrir_Click(); });
    menus_.on("mnuouvrirtxt", [&session] { session.mnuouvrirtxt_click(false); });
    menus_.on("mnuouvrirtxtUTF8", [&session] { session.mnuouvrirtxt_click(true); });
    menus_.on("mnuEnregistrer", [&session] { session.mnuEnregistrer_Click(); });
    menus_.on("mnuEnregistrerTyp", [&session] { session.mnuEnregistrerTyp_Click(); });
    menus_.on("mnuEnregistrerTxt", [&session] { session.mnuEnregistrerTxt_Click(false); });
    menus_.on("mnuEnregistrerTxtUTF8", [&session] { session.mnuEnregistrerTxt_Click(true); });
    menus_.on("mnufermer", [&session] { session.mnufermer_Click(); });
    menus_.on("mnuQuitter", [this] { close(); });
    menus_.on("mnuAnnulerDocument", [&session] { session.undo(); });
    menus_.on("mnuRetablirDocument", [&session] { session.redo(); });
    menus_.on("cmdSupprimer", [this] { context_.session.deleteObject(context_.current.object()); });
    text_->setEditMenu(&menus_.menu("mnuEdition"));
    connections_.push_back(text_->revealRequested.connect([this] { showText(); }));
    card_->journalRequested = [this] { openJournal(); };
    status_->openJournal = [this] { openJournal(); };
}

void frmMain::connectViewCommands() {
    Settings& settings = context_.settings;
    const auto foldable = [this, &settings](const char* name, const SettingKey& key,
                                            QWidget* pane) {
        menus_.on(name, [this, &settings, name, key, pane] {
            const bool shown = menus_.action(name).isChecked();
            pane->setVisible(shown);
            settings.setBoolean(key, shown);
        });
    };
    foldable("mnuListesObjets", keys::kListesObjets, left_);
    foldable("mnuApercu", keys::kApercu, right_);
    menus_.on("mnuSauvegardeAuto", [this, &settings] {
        settings.setBoolean(keys::kSauvegardeAuto, menus_.action("mnuSauvegardeAuto").isChecked());
    });
    menus_.on("mnuTexte", [this] { showText(); });
    menus_.on("mnuIcones", [this] {
        showMiddle();
        sheet_->focusSheet();
    });
    sheet_->setObjectMenu(&menus_.menu("mnuObjets"));
    right_->picturesChanged = [this] {
        sheet_->readSettings();
        lists_->readSettings();
    };
    menus_.on("mnuMessages", [this] { openJournal(); });
    menus_.on("mnuRecherche", [this] { openSearch(); });
    menus_.on("mnuChoixLangue", [this] { openModal<frmLangues>(); });
    menus_.on("mnusauvegardetexte", [this] { openModal<frmSauvegardetxt>(); });
    menus_.on("mnuAProposDe", [this] { openModal<frmAbout>(); });
    if (!settings.text(keys::kMajAdresse).empty()) {
        menus_.on("mnuMiseAJour", [this] { openModal<frmUpdate>(); });
    }
    menus_.on("cmdLabels", [this] { openModal<frmLabels>(); });
    menus_.on("mnuPreferences", [this] { openPreferences(Preferences(context_.settings)); });
    menus_.on("mnuFiltrer", [this] {
        if (!menus_.action("mnuListesObjets").isChecked()) {
            menus_.action("mnuListesObjets").trigger();
        }
        lists_->focusFilter();
    });
}

void frmMain::offerPlatformLanguage() {
    std::vector<std::string> preferred;
    for (const QString& language : QLocale::system().uiLanguages()) {
        preferred.push_back(fromQt(language));
    }
    const auto offered = languageOffer(preferred, context_.folders);
    if (offered) {
        status_->offer(offered->line, [this, Langue = offered->Langue] {
            LanguageChoice(context_.folders, context_.settings, context_.traduction,
                           context_.languageChanged)
                .choose(Langue);
        });
    }
}

void frmMain::showText() {
    menus_.action("mnuTexte").setChecked(true);
    showMiddle();
}

void frmMain::openJournal() {
    if (!journal_) {
        journal_ = new frmErreur(this, context_);
        journal_->goToLine = [this](int line) {
            showText();
            text_->goToLine(line);
        };
        journal_->goToObject = [this](const ObjectRef& object) { context_.current.choose(object); };
    }
    journal_->open();
}

void frmMain::openSearch() {
    if (!search_) {
        search_ = new frmRecherche(this, context_, *text_);
    }
    search_->open();
}

void frmMain::openPreferences(const Preferences& shown) {
    auto* window = new frmPreferences(
        this, context_, shown,
        [this](QWidget* parent, std::int32_t colour, std::function<void(std::int32_t)> chosen) {
            chooseColour(parent, context_, colour, std::move(chosen));
        });
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(window, &QDialog::accepted, this,
            guarded("cmdOK_Click", "frmPreferences",
                    [this, window] { storePreferences(window->choices()); }));
    window->open();
}

// With the window closed, since edits that are applied first need the progress and its cancel.
void frmMain::storePreferences(const Preferences& choices) {
    choices.cmdOK_Click(context_.session, [this, alive = QPointer(this), choices](
                                              const std::optional<Preferences::Effects>& effects) {
        if (!alive) {
            return;
        }
        if (!effects) {
            // The edits stay in the view; the choices aren't lost with the window.
            QMetaObject::invokeMethod(this,
                                      guarded("mnuPreferences_Click", "frmMain",
                                              [this, choices] { openPreferences(choices); }),
                                      Qt::QueuedConnection);
            return;
        }
        if (effects->text) {
            context_.session.settingsChanged();
        }
        if (effects->sheet) {
            sheet_->readSettings();
            lists_->readSettings();
        }
    });
}

}  // namespace quillmark
