#pragma once
// The box in which the user chooses a file.

#include <string>

namespace pelk {

enum class FilePurpose { Open, Save };

/// See `Dialogs::openFile` and `Dialogs::saveFile`.
std::wstring chooseFile(FilePurpose purpose, const std::wstring& title, std::wstring filter);

}  // namespace pelk
