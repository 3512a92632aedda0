#pragma once
// The bar chart, a window class of its own.

#include <memory>
#include <string>

#include "platform/windows/controls/native_control.h"

namespace pelk {

/// Registers the window class. Windows keeps classes of an unloaded DLL, whose code is gone.
class ChartClass {
 public:
    ChartClass();
    ChartClass(const ChartClass&) = delete;
    ChartClass& operator=(const ChartClass&) = delete;
    ~ChartClass();

    static constexpr const wchar_t* kName = L"Pelk.BarChart";
    /// Returns the class that all charts share while there is one.
    static std::shared_ptr<ChartClass> shared();
};

/// Keeps the class until the window of the control is gone: a window destroys its controls'
/// windows before it releases them.
struct ChartClassUse {
    std::shared_ptr<ChartClass> chartClass = ChartClass::shared();
};

class Win32BarChart : private ChartClassUse, public Win32Control<BarChart> {
 public:
    explicit Win32BarChart(const ControlPlace& place);
    void setContent(ChartContent content) override;

 private:
    friend class ChartClass;
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam) const;
    void paintWindow() const;
    void paint(HDC dc, const RECT& space) const;

    ChartContent content_;
};

}  // namespace pelk
