#include "apps/cli/terminal_dialogs.h"

#include "apps/cli/terminal_text.h"

namespace pelk {

Answer TerminalDialogs::message(const std::string& text, Buttons buttons) {
    tell(text);
    switch (buttons) {
        case Buttons::Ok:
            return Answer::Ok;
        case Buttons::OkCancel:
            return Answer::Cancel;
        case Buttons::YesNo:
            break;
    }
    return Answer::No;
}

}  // namespace pelk
