#pragma once
// The box about the program: version, licence, libraries.

#include <QDialog>
#include <functional>
#include <string>

namespace pelk {

class AboutBox : public QDialog {
 public:
    /// `openHelp` opens a page of the help; if it is empty, the box has no links.
    AboutBox(QWidget* parent, std::function<void(const std::string&)> openHelp);

 private:
    std::function<void(const std::string&)> openHelp_;
};

}  // namespace pelk
