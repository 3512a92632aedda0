#include "maintenance/OthersForm.h"

#include <exception>

#include "maintenance/database_import.h"
#include "platform/form_sizes.h"

namespace pelk {
namespace {

constexpr int kGap = 120;
constexpr Size kButtonSize{2 * kFormButton.width, kFormButton.height};
constexpr int kButtons = 5;
constexpr Size kInnerSize{kButtonSize.width + 2 * kWideMargin,
                          kButtons* kButtonSize.height + (kButtons - 1) * kGap + 2 * kWideMargin};

constexpr Rect buttonAt(int row) {
    return {kWideMargin, kWideMargin + row * (kGap + kButtonSize.height), kButtonSize.width,
            kButtonSize.height};
}

constexpr const char* kFileFilter = "Pelk Data Base files (*.db)|*.db|All files (*.*)|*.*";

}  // namespace

OthersForm::OthersForm(const UserInterface& ui, Storage& storage)
    : window(ui.toolkit.createWindow()),
      configButton(window->addButton(buttonAt(0), "Configure")),
      exportButton(window->addButton(buttonAt(1), "Export database")),
      importButton(window->addButton(buttonAt(2), "Import a database")),
      delButton(window->addButton(buttonAt(3), "Delete database")),
      closeButton(window->addButton(buttonAt(4), "Close")),
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
}

void OthersForm::exportButtonClick() {
    const std::string path = ui_.dialogs.saveFile("Exporting the database", kFileFilter);
    if (!path.empty())
        storage_.exportDatabase(*database, path);
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
    const ImportResult result = importDatabaseFile(*database, path, storage_, *this);
    const std::string failed = "Error while loading file " + path;
    switch (result.outcome) {
        case ImportOutcome::Imported:
            databaseChanged();
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
    for (Button* const button :
         {&configButton, &exportButton, &importButton, &delButton, &closeButton})
        button->setEnabled(!importing);
}

bool OthersForm::confirmsMerge(const std::string& question) {
    return ui_.dialogs.message(question, Buttons::OkCancel) == Answer::Ok;
}

void OthersForm::itemStarted() {
    ui_.display.processPendingEvents();
}

void OthersForm::delButtonClick() {
    if (ui_.dialogs.message("Do you really want to delete the contacts database?",
                            Buttons::OkCancel) != Answer::Ok)
        return;
    deleteDatabase(*database, storage_);
    databaseChanged();
}

}  // namespace pelk
