// The real boxes: what they show, and what closing them answers.

#include <gtest/gtest.h>
#include <windows.h>
// The line above comes first.
#include <commdlg.h>
#include <dlgs.h>

#include <functional>
#include <utility>

#include "platform/error.h"
#include "platform/windows/controls/dialogs.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/controls/window_text.h"
#include "platform/windows/wide_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

constexpr int kTextId = 0xFFFF;
constexpr int kLineId = 100;

std::function<void(HWND)> whenShownAct;

/// The box of this thread that takes input; null while there is none.
HWND openBox() {
    HWND box = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
            if (!IsWindowVisible(window) || GetDlgItem(window, kTextId) == nullptr)
                return TRUE;
            *reinterpret_cast<HWND*>(found) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&box));
    return box;
}

/// Runs `act` on the box as soon as one is there.
void whenShown(std::function<void(HWND)> act) {
    whenShownAct = std::move(act);
    SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR timer, DWORD) {
        if (const HWND box = openBox()) {
            KillTimer(nullptr, timer);
            whenShownAct(box);
        }
    });
}

struct Shown {
    std::wstring title;
    std::wstring text;
    std::wstring buttons;
    Answer answer;
};

/// Shows a message and presses the button of that number; closes the box when none is named.
Shown messageAnswered(const std::string& text, Buttons buttons, int press = 0) {
    Win32Dialogs dialogs;
    Shown shown;
    whenShown([&](HWND box) {
        shown.title = textOfWindow(box);
        shown.text = textOfWindow(GetDlgItem(box, kTextId));
        for (const int id : {IDOK, IDCANCEL, IDYES, IDNO})
            if (const HWND button = GetDlgItem(box, id))
                shown.buttons += textOfWindow(button) + L" ";
        if (press != 0)
            PostMessageW(GetDlgItem(box, press), BM_CLICK, 0, 0);
        else
            PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0);
    });
    shown.answer = dialogs.message(text, buttons);
    return shown;
}

TEST(WinDialogs, MessagesShowWhatIsAskedAndReturnTheButton) {
    const Shown ok = messageAnswered("5 < 6 & \xC3\x85sa", Buttons::Ok);
    EXPECT_EQ(ok.title, L"Pelk");
    EXPECT_EQ(ok.text, L"5 < 6 & \u00C5sa");
    EXPECT_EQ(ok.buttons, L"OK ");
    EXPECT_EQ(ok.answer, Answer::Ok);

    const Shown cancel = messageAnswered("?", Buttons::OkCancel);
    EXPECT_EQ(cancel.buttons, L"OK Cancel ");
    EXPECT_EQ(cancel.answer, Answer::Cancel);
    EXPECT_EQ(messageAnswered("?", Buttons::OkCancel, IDOK).answer, Answer::Ok);
    EXPECT_EQ(messageAnswered("?", Buttons::OkCancel, IDCANCEL).answer, Answer::Cancel);

    const Shown no = messageAnswered("?", Buttons::YesNo);
    EXPECT_EQ(no.buttons, L"&Yes &No ");
    EXPECT_EQ(no.answer, Answer::No);
    EXPECT_EQ(messageAnswered("?", Buttons::YesNo, IDYES).answer, Answer::Yes);
    EXPECT_EQ(messageAnswered("?", Buttons::YesNo, IDNO).answer, Answer::No);
}

TEST(WinDialogs, InputReturnsTheLineOrNothing) {
    Win32Dialogs dialogs;
    whenShown([](HWND box) {
        EXPECT_EQ(textOfWindow(box), L"Rename");
        EXPECT_EQ(textOfWindow(GetDlgItem(box, kTextId)), L"First &letters:");
        EXPECT_EQ(GetFocus(), GetDlgItem(box, kLineId));
        EXPECT_EQ(textOfWindow(GetFocus()), L"as");
        for (const wchar_t letter : {L'\u00C5', L's'})  // over the text, which is selected
            PostMessageW(GetFocus(), WM_CHAR, letter, 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    });
    EXPECT_EQ(dialogs.input("Rename", "First &letters:", "as"), "\xC3\x85s");
    whenShown([](HWND box) {
        EXPECT_EQ(textOfWindow(box), L"Pelk") << "the default title";
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    EXPECT_EQ(dialogs.input("", "?", "as"), "");
}

TEST(WinDialogs, BoxesKeepTheUserFromAllWindowsAndFreeThemAgain) {
    TestPlatform platform;
    Win32Dialogs dialogs;
    const auto other = platform.toolkit().createWindow();
    const auto active = platform.toolkit().createWindow();
    int asked = 0;
    for (Window* window : {other.get(), active.get()}) {
        window->setInnerSize({3000, 1000});
        window->onCloseRequest = [&] { return ++asked > 0; };
        window->show();
    }
    whenShown([&](HWND box) {
        platform.driver().close(*other);
        platform.driver().close(*active);
        EXPECT_EQ(asked, 0);
        PostMessageW(box, WM_CLOSE, 0, 0);
    });
    const HWND before = GetActiveWindow();
    dialogs.message("?", Buttons::Ok);
    EXPECT_EQ(GetActiveWindow(), before);
    platform.driver().close(*active);
    platform.driver().close(*other);
    EXPECT_EQ(asked, 2);
}

TEST(WinDialogs, BusyPointerIsNotCountedAndRestsDuringBoxes) {
    Win32Dialogs dialogs;
    const HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
    dialogs.setBusyPointer(true);
    dialogs.setBusyPointer(true);
    EXPECT_EQ(GetCursor(), wait);
    whenShown([&](HWND box) {
        EXPECT_NE(GetCursor(), wait);
        PostMessageW(box, WM_CLOSE, 0, 0);
    });
    dialogs.message("?", Buttons::Ok);
    EXPECT_EQ(GetCursor(), wait);
    dialogs.setBusyPointer(false);
    EXPECT_NE(GetCursor(), wait);
    EXPECT_FALSE(isPointerBusy());
}

/// Types a path into the system's file box, once that is there, and presses OK; Cancel for none.
void answerFileBox(const std::wstring& title, const std::wstring& path) {
    static std::wstring awaited;
    static std::wstring typed;
    awaited = title;
    typed = path;
    SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR timer, DWORD) {
        const HWND box = FindWindowW(L"#32770", awaited.c_str());
        const HWND combo = box == nullptr ? nullptr : GetDlgItem(box, cmb13);
        const HWND line = combo != nullptr ? combo : GetDlgItem(box, edt1);
        if (line == nullptr)
            return;
        KillTimer(nullptr, timer);
        SendMessageW(line, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(typed.c_str()));
        PostMessageW(box, WM_COMMAND, typed.empty() ? IDCANCEL : IDOK, 0);
    });
}

TEST(WinDialogs, FilesAreChosenInTheBoxOfTheSystem) {
    constexpr const char* kFilter = "Pelk Data Base files (*.db)|*.db|All files (*.*)|*.*";
    const TemporaryFolder folder;
    const std::string there = folder.write("a.db", "");
    Win32Dialogs dialogs;
    answerFileBox(L"Importing", toWide(there));
    EXPECT_EQ(dialogs.openFile("Importing", kFilter), there);
    answerFileBox(L"Exporting", toWide(folder.path() + "\\\xC3\x85"));
    EXPECT_EQ(dialogs.saveFile("Exporting", kFilter), folder.path() + "\\\xC3\x85.db");
    answerFileBox(L"Exporting", L"");
    EXPECT_EQ(dialogs.saveFile("Exporting", kFilter), "");
}

std::wstring clipboardText() {
    EXPECT_TRUE(OpenClipboard(nullptr));
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* const text = static_cast<const wchar_t*>(GlobalLock(memory));
    const std::wstring copy = text == nullptr ? L"" : text;
    GlobalUnlock(memory);
    CloseClipboard();
    return copy;
}

TEST(WinDialogs, CopiesUnlessSomeoneHoldsTheClipboard) {
    Win32Dialogs dialogs;
    dialogs.copyToClipboard("gone");
    dialogs.copyToClipboard("\xC3\x85sa\nBob\r\n\xF0\x9F\x98\x80");
    EXPECT_EQ(clipboardText(), L"\u00C5sa\r\nBob\r\n\xD83D\xDE00");

    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(OpenClipboard(other));
    EXPECT_THROW(dialogs.copyToClipboard("lost"), Error);
    CloseClipboard();
    DestroyWindow(other);
    EXPECT_EQ(clipboardText().substr(0, 3), L"\u00C5sa");
}

TEST(WinDialogs, PendingEventsLeaveTheRequestToQuitToTheHost) {
    Win32Dialogs dialogs;
    PostQuitMessage(7);
    dialogs.processPendingEvents();
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 7U);
}

}  // namespace

}  // namespace pelk
