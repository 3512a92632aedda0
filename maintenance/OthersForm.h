#pragma once
// The commands on the database as a whole.

#include <functional>
#include <memory>
#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "history/history_file.h"
#include "maintenance/import_merge.h"
#include "platform/user_interface.h"

namespace pelk {

class OthersForm : private ImportGuide {
 public:
    OthersForm(const UserInterface& ui, Storage& storage);

    /// Set before the form is shown; outlives the form's use of it.
    Database* database = nullptr;
    HistoryFile* history = nullptr;
    /// Lets the user set the thresholds. Set before the form is shown, like `databaseChanged`.
    std::function<void()> configure;
    /// Suggests contacts to merge. Set before the form is shown.
    std::function<void()> findDuplicates;
    /// Exports the network and returns what was done; empty when the user cancels. Set before the
    /// form is shown.
    std::function<std::string()> exportNetwork;
    /// Called after a command has changed the database.
    std::function<void()> databaseChanged;

    void show();

    const std::unique_ptr<Window> window;
    Button& configButton;
    Button& exportButton;
    Button& importButton;
    Button& delButton;
    Button& closeButton;
    Button& restoreButton;
    /// Says what the last command did, and where.
    Label& doneLabel;
    Button& duplicatesButton;
    Button& networkButton;

 private:
    void exportButtonClick();
    void importButtonClick();
    void networkButtonClick();
    void delButtonClick();
    void restoreButtonClick();
    void importFile(const std::string& path);
    void setImporting(bool importing);

    bool confirmsMerge(const std::string& question) override;
    void itemStarted() override;

    UserInterface ui_;
    Storage& storage_;
    bool importing_ = false;
};

}  // namespace pelk
