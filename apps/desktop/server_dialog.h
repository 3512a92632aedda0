#pragma once
// Asks for an account on a mail server.

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>

#include "apps/desktop/server_entry.h"
#include "apps/desktop/server_opening.h"

namespace pelk {

/// The user can accept it only with a complete entry. The dialog itself shows what is wrong with an
/// entry, and the result of a test.
class ServerDialog : public QDialog {
 public:
    explicit ServerDialog(QWidget* parent);

    /// Requires: accepted.
    std::string url() const { return urlOf(entry()); }
    std::string password() const { return password_->text().toStdString(); }

    void accept() override;

 private:
    QWidget* makeFields();
    QLineEdit* addField(QFormLayout& form, const QString& caption, const char* name);
    QDialogButtonBox* makeButtons();
    void guess();
    ServerEntry entry() const;
    void requireComplete() const;
    void startTest();
    void stopTest(const QString& text);
    void lookAtTest();
    void setTesting(bool testing);
    void attempt(const std::function<void()>& act);

    QWidget* fields_ = nullptr;
    QLineEdit* address_ = nullptr;
    QLineEdit* server_ = nullptr;
    QComboBox* encryption_ = nullptr;
    QLineEdit* port_ = nullptr;
    QLineEdit* user_ = nullptr;
    QLineEdit* password_ = nullptr;
    QProgressBar* progress_;
    QLabel* state_;
    QPushButton* test_ = nullptr;
    QPushButton* ok_ = nullptr;
    std::optional<ServerOpening> opening_;
    QTimer timer_;
};

}  // namespace pelk
