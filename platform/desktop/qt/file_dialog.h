#pragma once
// The box in which the user chooses a file.

#include <QFileDialog>
#include <string>

namespace pelk {

/// See `Dialogs::openFile` and `Dialogs::saveFile`.
std::string chooseFile(QWidget* owner, QFileDialog::AcceptMode mode, const std::string& title,
                       const std::string& filter);

}  // namespace pelk
