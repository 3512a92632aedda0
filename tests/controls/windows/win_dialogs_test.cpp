// The real boxes: what they show, and what closing them answers.

#include <windows.h>
// The line above comes first.
#include <commdlg.h>
#include <dlgs.h>

#include "platform/error.h"
#include "platform/windows/controls/dialogs.h"
#include "platform/windows/controls/display.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/controls/window_text.h"
#include "platform/windows/wide_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_platform.h"
#include "tests/support/windows/win_acts.h"

namespace pelk {
namespace {

constexpr int kTextId = 0xFFFF;
constexpr int kLineId = 100;

std::function<void(HWND)> whenShownAct;
std::function<HWND()> findShown;

/// The box of this thread that takes input; null while there is none.
HWND openBox() {
    for (const HWND window : windowsOfThread())
        if (GetDlgItem(window, kTextId) != nullptr)
            return window;
    return nullptr;
}

void CALLBACK actWhenShown(HWND, UINT, UINT_PTR timer, DWORD) {
    if (const HWND box = findShown()) {
        KillTimer(nullptr, timer);
        whenShownAct(box);
    }
}

/// Runs `act` on the box as soon as `find` finds one.
void whenShown(std::function<void(HWND)> act, std::function<HWND()> find = openBox) {
    whenShownAct = std::move(act);
    findShown = std::move(find);
    SetTimer(nullptr, 0, 10, actWhenShown);
}

struct Message {
    Buttons buttons;
    std::wstring shown;
    /// Where none is pressed, the box is closed.
    int pressed;
    Answer answer;
};

TEST(WinDialogs, MessagesShowWhatIsAskedAndReturnTheButton) {
    const std::vector<Message> messages = {
        {Buttons::Ok, L"OK ", 0, Answer::Ok},
        {Buttons::OkCancel, L"OK Cancel ", 0, Answer::Cancel},
        {Buttons::OkCancel, L"OK Cancel ", IDOK, Answer::Ok},
        {Buttons::OkCancel, L"OK Cancel ", IDCANCEL, Answer::Cancel},
        {Buttons::YesNo, L"&Yes &No ", 0, Answer::No},
        {Buttons::YesNo, L"&Yes &No ", IDYES, Answer::Yes},
        {Buttons::YesNo, L"&Yes &No ", IDNO, Answer::No},
    };
    for (const Message& message : messages) {
        whenShown([&message](HWND box) {
            EXPECT_EQ(textOfWindow(box), L"Pelk");
            EXPECT_EQ(textOfWindow(GetDlgItem(box, kTextId)), L"5 < 6 & \u00C5sa");
            std::wstring shown;
            for (const int id : {IDOK, IDCANCEL, IDYES, IDNO})
                if (const HWND button = GetDlgItem(box, id))
                    shown += textOfWindow(button) + L" ";
            EXPECT_EQ(shown, message.shown);
            if (message.pressed != 0)
                PostMessageW(GetDlgItem(box, message.pressed), BM_CLICK, 0, 0);
            else
                PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0);
        });
        EXPECT_EQ(Win32Dialogs().message("5 < 6 & \xC3\x85sa", message.buttons), message.answer);
    }
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

TEST(WinDialogs, ConfirmShowsTheConsequenceAndPreparesToCancel) {
    for (const bool agreed : {false, true}) {
        whenShown([agreed](HWND box) {
            EXPECT_EQ(textOfWindow(GetDlgItem(box, kTextId)), L"Delete &?\na: 1");
            EXPECT_EQ(GetFocus(), GetDlgItem(box, IDCANCEL));
            if (agreed)
                PostMessageW(GetDlgItem(box, IDOK), BM_CLICK, 0, 0);
            else
                PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
        });
        EXPECT_EQ(Win32Dialogs().confirm("Delete &?", "a: 1"), agreed);
    }
}

TEST(WinDialogs, InputSelectsWhatTypingReplaces) {
    whenShown([](HWND) {
        for (const wchar_t letter : {L'E', L'v'})
            PostMessageW(GetFocus(), WM_CHAR, letter, 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    });
    EXPECT_EQ(Win32Dialogs().input("Rename", "?", "\xC3\x85sa (a@x)", 4), "Ev (a@x)");
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

TEST(WinDisplay, BusyPointerIsNotCountedAndRestsDuringBoxes) {
    Win32Display display;
    const HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
    display.setBusyPointer(true);
    display.setBusyPointer(true);
    EXPECT_EQ(GetCursor(), wait);
    whenShown([&](HWND box) {
        EXPECT_NE(GetCursor(), wait);
        PostMessageW(box, WM_CLOSE, 0, 0);
    });
    Win32Dialogs().message("?", Buttons::Ok);
    EXPECT_EQ(GetCursor(), wait);
    display.setBusyPointer(false);
    EXPECT_NE(GetCursor(), wait);
    EXPECT_FALSE(isPointerBusy());
}

/// Types a path into the system's file box, once that is there, and presses OK; Cancel for none.
void answerFileBox(const std::wstring& title, const std::wstring& path) {
    const auto findLine = [title] {
        const HWND box = FindWindowW(L"#32770", title.c_str());
        const HWND combo = GetDlgItem(box, cmb13);
        return combo != nullptr ? combo : GetDlgItem(box, edt1);
    };
    const auto answer = [title, path](HWND line) {
        SendMessageW(line, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        PostMessageW(FindWindowW(L"#32770", title.c_str()), WM_COMMAND,
                     path.empty() ? IDCANCEL : IDOK, 0);
    };
    whenShown(answer, findLine);
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

TEST(WinDisplay, CopiesUnlessSomeoneHoldsTheClipboard) {
    Win32Display display;
    display.copyToClipboard("gone");
    display.copyToClipboard("\xC3\x85sa\nBob\r\n\xF0\x9F\x98\x80");
    EXPECT_EQ(clipboardText(), L"\u00C5sa\r\nBob\r\n\xD83D\xDE00");

    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(OpenClipboard(other));
    EXPECT_THROW(display.copyToClipboard("lost"), Error);
    CloseClipboard();
    DestroyWindow(other);
    EXPECT_EQ(clipboardText().substr(0, 3), L"\u00C5sa");
}

TEST(WinDisplay, PendingEventsLeaveTheRequestToQuitToTheHost) {
    Win32Display display;
    PostQuitMessage(7);
    display.processPendingEvents();
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 7U);
}

}  // namespace
}  // namespace pelk
