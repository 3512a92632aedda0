#pragma once
// The list control. The native list asks for the texts of the rows it paints.

#include "platform/windows/controls/native_control.h"

namespace pelk {

class Win32ListView : public Win32Control<ListView> {
 public:
    explicit Win32ListView(const ControlPlace& place);
    bool isSelected(std::size_t row) const override;
    void setColumnHeader(const std::string& text) override;
    LRESULT notified(NMHDR& header) override;
    void commanded(WORD notification) override;

 protected:
    void rowAdded() override;
    void rowRemoved(std::size_t row) override;

 private:
    void fillIn(LVITEMW& item) const;
    void holdRedraw();
    void widenFor(const std::string& text);

    int width_ = 0;
    bool holding_ = false;
};

}  // namespace pelk
