#pragma once
// The bar chart, a window class of its own.

#include "platform/windows/controls/native_control.h"
#include "platform/windows/controls/window_class.h"

namespace pelk {

class Win32BarChart : private WindowClassUse<Win32BarChart>, public Win32Control<BarChart> {
 public:
    explicit Win32BarChart(const ControlPlace& place);
    void setContent(ChartContent content) override;

 private:
    friend class WindowClass<Win32BarChart>;
    static constexpr const wchar_t* kClassName = L"Pelk.BarChart";
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam) const;
    void paintWindow() const;
    void paint(HDC dc, const RECT& space) const;

    ChartContent content_;
};

}  // namespace pelk
