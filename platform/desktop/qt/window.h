#pragma once
// The window on Qt.

#include <QButtonGroup>
#include <QEventLoop>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/shortcut_acts.h"
#include "platform/dialogs.h"

namespace pelk {

class QtWindow : public Window, public NativeWidget {
 public:
    /// `dialogs` shows the handlers' exceptions. Both references must outlive the window.
    QtWindow(const TwipScale& scale, Dialogs& dialogs, const Language& language);
    ~QtWindow() override;

    void setCaption(const std::string& caption) override;
    void setInnerSize(Size size) override;
    void setMinimumInnerSize(Size size) override;
    Size innerSize() const override;
    void setStrips(int above, int below) override;

    void show() override;
    void showModal() override;
    void hide() override;
    bool isVisible() const override;
    std::string place() const override;
    void setPlace(const std::string& place) override;
    void setBusyPointer(bool busy) override;
    void setShortcut(Shortcut shortcut, std::function<void()> act) override;
    void setDefaultButton(Button& button) override;

    Label& addLabel(const Rect& bounds, const std::string& text) override;
    Picture& addPicture(const Rect& bounds, TreeImage image) override;
    Button& addButton(const Rect& bounds, const std::string& text) override;
    OptionButton& addOptionButton(const Rect& bounds, const std::string& text) override;
    TextBox& addTextBox(const Rect& bounds) override;
    Slider& addSlider(const Rect& bounds) override;
    ProgressBar& addProgressBar(const Rect& bounds) override;
    ListView& addListView(const Rect& bounds) override;
    TreeView& addTreeView(const Rect& bounds) override;
    BarChart& addBarChart(const Rect& bounds) override;
    DrawingArea& addDrawingArea(const Rect& bounds) override;
    PopupMenu& addPopupMenu() override;

    QWidget& nativeWidget() override;

 private:
    class Frame;

    template <class Kind>
    Kind& add(std::unique_ptr<Kind> control, const Rect& bounds);
    void bringToFront();
    void setModal(bool modal);
    QSize outerSize(Size inner) const;
    void sizeChanged();
    bool closeRequested();
    void hidden();

    TwipScale scale_;
    Dialogs& dialogs_;
    const Language& language_;
    std::unique_ptr<Frame> frame_;
    ShortcutActs shortcuts_;
    QButtonGroup options_;
    std::vector<std::unique_ptr<Control>> controls_;
    std::vector<std::unique_ptr<PopupMenu>> menus_;
    /// The size last passed to `onResize` or set by code; none before the window is first shown.
    QSize knownSize_;
    bool settingSize_ = false;
    std::optional<Rect> wantedPlace_;
    /// While the window is modal, the loop that waits until it is hidden.
    QEventLoop* modalLoop_ = nullptr;
};

}  // namespace pelk
