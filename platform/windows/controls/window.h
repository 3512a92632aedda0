#pragma once
// The window on Win32: a dialog without a template, in the host's message loop.

#include <memory>
#include <optional>
#include <vector>

#include "platform/dialogs.h"
#include "platform/windows/controls/keyboard_hook.h"
#include "platform/windows/controls/modal_session.h"
#include "platform/windows/controls/native_control.h"

namespace pelk {

class Win32Window : public Window, public NativeHandle {
 public:
    /// `dialogs` shows the handlers' exceptions. The references must outlive the window.
    Win32Window(const Look& look, Dialogs& dialogs, const Language& language);
    ~Win32Window() override;

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

    HWND handle() const override { return handle_; }

 private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    INT_PTR handleMessage(UINT message, WPARAM wparam, LPARAM lparam);
    INT_PTR handleCommand(WORD id, WORD notification);
    INT_PTR handleNotification(NMHDR& header);

    INT_PTR choosePointer(HWND under) const;

    NativeControl* controlOf(int id) const;
    NativeControl* controlOf(HWND control) const;
    template <class Kind>
    Kind& add(std::unique_ptr<Kind> control, const Rect& bounds);
    ControlPlace nextPlace() const;

    SIZE frameSize(SIZE inner) const;
    void resizeTo(SIZE inner);
    void bringToFront();
    void setOwner(HWND owner) const;
    void ownByActiveWindow() const;
    void runUntilHidden() const;
    void sizeChanged();
    void closeRequested();
    void shortcutPressed(Shortcut shortcut) const;
    void colorsChanged(UINT message) const;

    const Look& look_;
    Dialogs& dialogs_;
    const Language& language_;
    HWND handle_ = nullptr;
    ShortcutActs shortcuts_;
    std::unique_ptr<KeyboardNavigation> navigation_;
    std::vector<std::unique_ptr<Control>> controls_;
    std::vector<NativeControl*> natives_;
    std::vector<std::unique_ptr<PopupMenu>> menus_;
    bool busy_ = false;
    /// Of the inner area.
    SIZE size_ = {};
    SIZE minimum_ = {};
    /// The size last passed to `onResize` or set by code; none before the window is first shown.
    std::optional<SIZE> knownSize_;
    bool settingSize_ = false;
    std::optional<Rect> wantedPlace_;
    /// Set while the window is modal.
    std::unique_ptr<ModalSession> modal_;
};

}  // namespace pelk
