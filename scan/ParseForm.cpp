#include "scan/ParseForm.h"

#include "db/no_data_folder.h"
#include "platform/form_sizes.h"
#include "scan/scan_notes.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6300, 2100};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr Rect kStaticBounds{kFormMargin, 100, kWidth, 550};
constexpr Rect kDynamicBounds{kFormMargin, 700, kWidth, 300};
constexpr Rect kProgressBounds{kFormMargin, 1050, kWidth, 260};
constexpr Rect kWholeProgressBounds{kFormMargin, 1360, kWidth, 160};
constexpr Rect kWholeLabelBounds{kFormMargin, 1650, 3000, 270};

/// The bar shows every thousandth, so that it is not painted for each e-mail.
constexpr int kWholeSteps = 1000;

}  // namespace

ParseForm::ParseForm(const UserInterface& ui, const Platform& platform, Storage& storage)
    : window(ui.toolkit.createWindow()),
      staticLabel(window->addLabel(kStaticBounds,
                                   "Only newer e-mails will be scanned. This process may take a "
                                   "while. The deleted and outbox folders will NOT be scanned.")),
      DynamicLabel(window->addLabel(kDynamicBounds, "Please click the start button !")),
      parsingProgress(window->addProgressBar(kProgressBounds)),
      startButton(window->addButton(bottomButton(kInnerSize, 2), "Start")),
      cancelButton(window->addButton(bottomButton(kInnerSize, 1), "Cancel")),
      wholeLabel(window->addLabel(kWholeLabelBounds, "")),
      wholeProgress(window->addProgressBar(kWholeProgressBounds)),
      ui_(ui),
      platform_(platform),
      storage_(storage) {
    window->setCaption("Check for new e-mails");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    wholeProgress.setRange(0, kWholeSteps);
    // The form cannot be closed during a scan.
    window->onCloseRequest = [this] { return !scanning_; };
    startButton.onClick = [this] { startButtonClick(); };
    cancelButton.onClick = [this] { cancelButtonClick(); };
}

void ParseForm::showModal(const std::string& staticText, const std::string& dynamicText) {
    staticLabel.setText(staticText);
    DynamicLabel.setText(dynamicText);
    window->showModal();
}

void ParseForm::startButtonClick() {
    scan();
    openView();
}

void ParseForm::cancelButtonClick() {
    window->hide();
    openView();
}

/// When the result cannot be saved, the form stays open: the counts are in memory, and another
/// click on Start saves them without counting anything twice.
void ParseForm::scan() {
    const std::unique_ptr<MailSession> session = mailClient->session();
    ScanOutcome outcome;
    setScanning(true);
    meter_ = ScanProgressMeter(countScannedFolders(*session));
    try {
        outcome = scanAndSave(*database, storage_, platform_, *session, *this, {}, history);
    } catch (const NoDataFolder&) {
        setScanning(false);
        throw;
    } catch (const Error& error) {
        setScanning(false);
        DynamicLabel.setText("The result is not saved yet.");
        throw Error(std::string(error.what()) +
                    " The e-mails have been counted, but the result is not saved. Click the start "
                    "button to save it.");
    }
    setScanning(false);
    window->hide();
    const std::string summary = scanSummary(outcome);
    mailClient->tell(summary);
    if (tell)
        tell(summary);
    if (const std::string message = scanMessage(outcome); !message.empty())
        ui_.dialogs.message(message, Buttons::Ok);
}

void ParseForm::setScanning(bool scanning) {
    scanning_ = scanning;
    ui_.display.setBusyPointer(scanning);
    startButton.setEnabled(!scanning);
    cancelButton.setEnabled(!scanning);
    meter_ = ScanProgressMeter(0);
    if (!scanning)
        parsingProgress.setValue(1);
    wholeLabel.setText("");
    showWhole();
}

void ParseForm::showWhole() {
    const int value = meter_.value() / (ScanProgressMeter::kEnd / kWholeSteps);
    if (value != shownWhole_)
        wholeProgress.setValue(value);
    shownWhole_ = value;
}

void ParseForm::noticed(const std::string& notice) {
    ui_.dialogs.message(notice, Buttons::Ok);
}

void ParseForm::folderStarted(const std::string& name) {
    DynamicLabel.setText("Reading " + name);
    DynamicLabel.repaint();
    meter_.folderStarted();
    wholeLabel.setText("Folder " + std::to_string(meter_.folder()) + " of " +
                       std::to_string(meter_.folders()));
    wholeLabel.repaint();
    showWhole();
}

void ParseForm::itemsCounted(int count) {
    parsingProgress.setRange(1, count > 1 ? count : 2);
    meter_.itemsCounted(count);
}

void ParseForm::itemStarted(int index) {
    ui_.display.processPendingEvents();
    parsingProgress.setValue(index);
    meter_.itemStarted(index);
    showWhole();
}

}  // namespace pelk
