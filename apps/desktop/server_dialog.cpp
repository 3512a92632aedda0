#include "apps/desktop/server_dialog.h"

#include <QVBoxLayout>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr int kBetweenLooks = 50;
constexpr int kFieldLetters = 44;
constexpr int kStateLines = 4;

QLabel* plainLabel(const QString& text) {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(text);
    return label;
}

int countFolders(MailFolders& folders) {
    int count = 0;
    while (const std::unique_ptr<MailFolder> folder = folders.next())
        count += 1 + countFolders(*folder->folders());
    return count;
}

/// The account itself is the only top-level folder.
QString foundText(MailSession& session) {
    const int count = countFolders(*session.folders()) - 1;
    return count == 1 ? QStringLiteral("Connected: 1 folder.")
                      : QStringLiteral("Connected: %1 folders.").arg(count);
}

/// A field follows another one until the user has entered something.
void follow(QLineEdit& field, const QString& text) {
    if (!field.isModified() || field.text().isEmpty())
        field.setText(text);
}

}  // namespace

ServerDialog::ServerDialog(QWidget* parent)
    : QDialog(parent), progress_(new QProgressBar), state_(plainLabel({})) {
    setWindowTitle(QStringLiteral("Add a mail server"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(plainLabel(QStringLiteral(
        "Pelk reads the mail of an account by IMAP, and changes nothing on the server.")));
    layout->addWidget(makeFields());
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    QSizePolicy policy = progress_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(policy);
    layout->addWidget(progress_);
    state_->setObjectName(QStringLiteral("state"));
    state_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    state_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room for an error, so that the dialog keeps its size.
    state_->setMinimumHeight(kStateLines * state_->fontMetrics().lineSpacing());
    layout->addWidget(state_, 1);
    layout->addWidget(makeButtons());
    connect(&timer_, &QTimer::timeout, this, [this] { lookAtTest(); });
    setTesting(false);
}

QWidget* ServerDialog::makeFields() {
    fields_ = new QWidget;
    auto* const form = new QFormLayout(fields_);
    form->setContentsMargins(0, 0, 0, 0);
    address_ = addField(*form, QStringLiteral("E-&mail address:"), "address");
    server_ = addField(*form, QStringLiteral("Mail &server:"), "server");
    encryption_ = new QComboBox;
    encryption_->setObjectName(QStringLiteral("encryption"));
    encryption_->addItems({QStringLiteral("TLS"), QStringLiteral("STARTTLS")});
    form->addRow(QStringLiteral("&Encryption:"), encryption_);
    port_ = addField(*form, QStringLiteral("P&ort:"), "port");
    user_ = addField(*form, QStringLiteral("&User name:"), "user");
    password_ = addField(*form, QStringLiteral("&Password:"), "password");
    password_->setEchoMode(QLineEdit::Password);
    connect(address_, &QLineEdit::textEdited, this, [this] { guess(); });
    connect(encryption_, &QComboBox::currentIndexChanged, this, [this] { guess(); });
    guess();
    return fields_;
}

QLineEdit* ServerDialog::addField(QFormLayout& form, const QString& caption, const char* name) {
    auto* const field = new QLineEdit;
    field->setObjectName(QLatin1String(name));
    field->setMinimumWidth(kFieldLetters * field->fontMetrics().averageCharWidth());
    form.addRow(caption, field);
    return field;
}

QDialogButtonBox* ServerDialog::makeButtons() {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    test_ = buttons->addButton(QStringLiteral("&Test"), QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    connect(test_, &QPushButton::clicked, this, [this] {
        if (opening_)
            stopTest(QStringLiteral("The test was stopped."));
        else
            attempt([this] { startTest(); });
    });
    return buttons;
}

void ServerDialog::accept() {
    attempt([this] {
        requireComplete();
        QDialog::accept();
    });
}

void ServerDialog::guess() {
    follow(*server_, guessedServer(address_->text()));
    follow(*user_, address_->text().trimmed());
    follow(*port_, QString::number(usualPort(entry().encryption)));
}

ServerEntry ServerDialog::entry() const {
    return {server_->text(), user_->text(), port_->text(),
            encryption_->currentIndex() == 0 ? Encryption::Tls : Encryption::StartTls};
}

void ServerDialog::requireComplete() const {
    urlOf(entry());
    if (password_->text().isEmpty())
        throw Error("Enter the password.");
}

void ServerDialog::startTest() {
    requireComplete();
    opening_.emplace(readImapAddress(url()), password(), MailStoreOptions{});
    state_->setText(QStringLiteral("Connecting..."));
    setTesting(true);
}

void ServerDialog::stopTest(const QString& text) {
    opening_.reset();
    setTesting(false);
    state_->setText(text);
}

void ServerDialog::lookAtTest() {
    if (opening_->isDone())
        attempt([this] { stopTest(foundText(*opening_->take())); });
}

void ServerDialog::setTesting(bool testing) {
    fields_->setEnabled(!testing);
    ok_->setEnabled(!testing);
    progress_->setVisible(testing);
    test_->setText(testing ? QStringLiteral("S&top the test") : QStringLiteral("&Test"));
    if (testing)
        timer_.start(kBetweenLooks);
    else
        timer_.stop();
}

/// Shows why the act has failed.
void ServerDialog::attempt(const std::function<void()>& act) {
    try {
        act();
    } catch (const std::exception& fault) {
        stopTest(QString::fromUtf8(fault.what()));
    }
}

}  // namespace pelk
