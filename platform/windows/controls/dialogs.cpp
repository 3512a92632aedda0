#include "platform/windows/controls/dialogs.h"

#include "platform/windows/controls/box.h"
#include "platform/windows/controls/file_dialog.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

constexpr const wchar_t* kProgramName = L"Pelk";
constexpr BoxButton kOk{IDOK, L"OK"};
constexpr BoxButton kCancel{IDCANCEL, L"Cancel"};
constexpr BoxButton kYes{IDYES, L"&Yes"};
constexpr BoxButton kNo{IDNO, L"&No"};

std::vector<BoxButton> buttonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return {kOk, kCancel};
        case Buttons::YesNo:
            return {kYes, kNo};
        case Buttons::Ok:
            break;
    }
    return {kOk};
}

Answer answerOf(int button) {
    switch (button) {
        case IDYES:
            return Answer::Yes;
        case IDNO:
            return Answer::No;
        case IDCANCEL:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

}  // namespace

Answer Win32Dialogs::message(const std::string& text, Buttons buttons) {
    const PointerForBox pointer;
    const std::vector<BoxButton> shown = buttonsOf(buttons);
    return answerOf(Box(kProgramName, toWide(text), shown, shown.back().id).show());
}

bool Win32Dialogs::confirm(const std::string& question, const std::string& consequence) {
    const PointerForBox pointer;
    Box box(kProgramName, toWide(question + "\n" + consequence), {kOk, kCancel}, IDCANCEL);
    box.setDefault(IDCANCEL);
    return box.show() == IDOK;
}

std::string Win32Dialogs::input(const std::string& title, const std::string& prompt,
                                const std::string& initial, std::size_t selected) {
    const PointerForBox pointer;
    Box box(title.empty() ? kProgramName : toWide(title), toWide(prompt), {kOk, kCancel}, IDCANCEL);
    box.addLine(toWide(initial), toWide(initial.substr(0, selected)).size());
    return box.show() == IDOK ? toUtf8(box.line()) : std::string();
}

std::string Win32Dialogs::openFile(const std::string& title, const std::string& filter) {
    const PointerForBox pointer;
    return toUtf8(chooseFile(FilePurpose::Open, toWide(title), toWide(filter)));
}

std::string Win32Dialogs::saveFile(const std::string& title, const std::string& filter) {
    const PointerForBox pointer;
    return toUtf8(chooseFile(FilePurpose::Save, toWide(title), toWide(filter)));
}

}  // namespace pelk
