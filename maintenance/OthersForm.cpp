#include "maintenance/OthersForm.h"

#include <cstddef>
#include <exception>
#include <utility>

#include "maintenance/database_export.h"
#include "maintenance/database_import.h"
#include "maintenance/database_restore.h"
#include "platform/form_sizes.h"
#include "views/deletion_text.h"

namespace pelk {
namespace {

constexpr int kGap = 120;
constexpr Size kButtonSize{2 * kFormButton.width, kFormButton.height};
constexpr int kButtons = 8;
/// Wide enough for paths, which do not wrap.
constexpr int kWidth = 6000;
constexpr int kTextHeight = 800;

constexpr Rect buttonAt(int row) {
    return {(kWidth - kButtonSize.width) / 2, kWideMargin + row * (kGap + kButtonSize.height),
            kButtonSize.width, kButtonSize.height};
}

constexpr Rect kTextBounds{kWideMargin, buttonAt(kButtons).top, kWidth - 2 * kWideMargin,
                           kTextHeight};
constexpr Size kInnerSize{kWidth, kTextBounds.top + kTextHeight + kWideMargin / 2};

constexpr const char* kFileFilter = "Pelk Data Base files (*.db)|*.db|All files (*.*)|*.*";

}  // namespace

OthersForm::OthersForm(const UserInterface& ui, Storage& storage)
    : window(ui.toolkit.createWindow()),
      configButton(window->addButton(buttonAt(0), "Configure")),
      exportButton(window->addButton(buttonAt(1), "Export database")),
      importButton(window->addButton(buttonAt(2), "Import a database")),
      delButton(window->addButton(buttonAt(3), "Delete database")),
      closeButton(window->addButton(buttonAt(4), "Close")),
      restoreButton(window->addButton(buttonAt(5), "Restore the last copy...")),
      doneLabel(window->addLabel(kTextBounds, "")),
      duplicatesButton(window->addButton(buttonAt(6), "Find duplicates...")),
      networkButton(window->addButton(buttonAt(7), "Export network...")),
      ui_(ui),
      storage_(storage) {
    window->setCaption("Other options");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    // The form cannot be closed during an import.
    window->onCloseRequest = [this] { return !importing_; };
    configButton.onClick = [this] { configure(); };
    exportButton.onClick = [this] { exportButtonClick(); };
    importButton.onClick = [this] { importButtonClick(); };
    delButton.onClick = [this] { delButtonClick(); };
    closeButton.onClick = [this] { window->hide(); };
    restoreButton.onClick = [this] { restoreButtonClick(); };
    duplicatesButton.onClick = [this] { findDuplicates(); };
    networkButton.onClick = [this] { networkButtonClick(); };
}

void OthersForm::show() {
    doneLabel.setText("");
    window->show();
}

void OthersForm::exportButtonClick() {
    const std::string path = ui_.dialogs.saveFile("Exporting the database", kFileFilter);
    if (path.empty())
        return;
    exportDatabaseFile(*database, path, storage_, history);
    doneLabel.setText("Exported " + sizeText(database->contactCount(), database->relationCount()) +
                      " to\n" + path);
}

void OthersForm::networkButtonClick() {
    if (const std::string done = exportNetwork(); !done.empty())
        doneLabel.setText(done);
}

void OthersForm::importButtonClick() {
    const std::string path = ui_.dialogs.openFile("Importing a database", kFileFilter);
    if (path.empty())
        return;
    setImporting(true);
    try {
        importFile(path);
    } catch (const std::exception&) {
        setImporting(false);
        throw;
    }
    setImporting(false);
}

void OthersForm::importFile(const std::string& path) {
    const std::size_t contacts = database->contactCount();
    const std::size_t relations = database->relationCount();
    const ImportResult result = importDatabaseFile(*database, path, storage_, *this, history);
    const std::string failed = "Error while loading file " + path;
    switch (result.outcome) {
        case ImportOutcome::Imported:
            databaseChanged();
            doneLabel.setText("Imported " +
                              sizeText(database->contactCount() - contacts,
                                       database->relationCount() - relations) +
                              " that were new, from\n" + path);
            if (!result.fault.empty())
                ui_.dialogs.message(result.fault, Buttons::Ok);
            break;
        case ImportOutcome::Unreadable:
            ui_.dialogs.message(failed, Buttons::Ok);
            break;
        case ImportOutcome::Unsound:
            ui_.dialogs.message(failed + "\n" + result.fault, Buttons::Ok);
            break;
        case ImportOutcome::Ended:
            break;
    }
}

void OthersForm::setImporting(bool importing) {
    importing_ = importing;
    ui_.display.setBusyPointer(importing);
    for (Button* const button : {&configButton, &exportButton, &importButton, &delButton,
                                 &closeButton, &restoreButton, &duplicatesButton, &networkButton})
        button->setEnabled(!importing);
    // A disabled button loses the focus.
    if (!importing)
        importButton.focus();
}

bool OthersForm::confirmsMerge(const std::string& question) {
    return ui_.dialogs.message(question, Buttons::OkCancel) == Answer::Ok;
}

void OthersForm::itemStarted() {
    ui_.display.processPendingEvents();
}

void OthersForm::delButtonClick() {
    if (!ui_.dialogs.confirm("Do you really want to delete the contacts database?",
                             deletionText(*database)))
        return;
    const std::string size = sizeText(database->contactCount(), database->relationCount());
    deleteDatabase(*database, storage_);
    databaseChanged();
    doneLabel.setText("Deleted " + size + ". The last copy is\n" + storage_.backupFile());
}

void OthersForm::restoreButtonClick() {
    OpenedDatabase copy = storage_.readBackup();
    if (!copy.database) {
        ui_.dialogs.message(
            "There is no copy yet. Pelk keeps one before it deletes, merges or "
            "imports contacts for the first time after its start.",
            Buttons::Ok);
        return;
    }
    const std::string content = contentText(*copy.database);
    if (!ui_.dialogs.confirm("Do you want to restore the last copy of the database?",
                             "It holds " + content + ". Now there are " + contentText(*database) +
                                 ". Undo brings them back."))
        return;
    const std::string kept = restoreCopy(*database, std::move(*copy.database), storage_);
    databaseChanged();
    doneLabel.setText("Restored " + content + "." +
                      (kept.empty() ? "" : "\nThe database from before: " + kept));
}

}  // namespace pelk
