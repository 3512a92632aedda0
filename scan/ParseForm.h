#pragma once
// The scan form: explains what a scan does, runs it, and then opens the relations view.

#include <functional>
#include <memory>
#include <string>

#include "db/storage.h"
#include "platform/mail_client.h"
#include "platform/platform.h"
#include "platform/user_interface.h"
#include "scan/scan_progress_meter.h"
#include "scan/scanner.h"

namespace pelk {

class ParseForm : private ScanProgress {
 public:
    ParseForm(const UserInterface& ui, const Platform& platform, Storage& storage);

    /// Set before the form is shown.
    Database* database = nullptr;
    MailClient* mailClient = nullptr;
    HistoryFile* history = nullptr;
    /// Opens the relations view on the database.
    std::function<void()> openView;
    /// Receives a line about each scan before that, to show it there.
    std::function<void(const std::string&)> tell;

    /// Shows the form modally with these texts. Returns when it is closed.
    void showModal(const std::string& staticText, const std::string& dynamicText);

    const std::unique_ptr<Window> window;
    Label& staticLabel;
    Label& DynamicLabel;
    ProgressBar& parsingProgress;
    Button& startButton;
    Button& cancelButton;
    /// These two show how far the scan has come with all folders.
    Label& wholeLabel;
    ProgressBar& wholeProgress;

 private:
    void startButtonClick();
    void cancelButtonClick();
    void scan();
    void setScanning(bool scanning);
    void showWhole();

    void noticed(const std::string& notice) override;
    void folderStarted(const std::string& name) override;
    void itemsCounted(int count) override;
    void itemStarted(int index) override;

    UserInterface ui_;
    Platform platform_;
    Storage& storage_;
    bool scanning_ = false;
    ScanProgressMeter meter_{0};
    int shownWhole_ = 0;
};

}  // namespace pelk
