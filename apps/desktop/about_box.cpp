#include "apps/desktop/about_box.h"

#include <libetpan/libetpan_version.h>
#include <openssl/crypto.h>

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <pugixml.hpp>
#include <utility>

#include "addin/product.h"
#include "apps/desktop/licence.h"
#include "mailstore/library_versions.h"
#include "platform/desktop/qt/images.h"

namespace pelk {
namespace {

constexpr int kIconSize = 64;
constexpr int kBesideText = 40;
constexpr int kLicenceRows = 12;

QLabel* plainLabel(const QString& text) {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setText(text);
    return label;
}

QLabel* heading() {
    QLabel* const label =
        plainLabel(QString::fromUtf8(kProductName) + ' ' + QString::fromUtf8(kProductVersion));
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    label->setFont(font);
    return label;
}

QLayout* titleRow() {
    auto* const row = new QHBoxLayout;
    auto* const icon = new QLabel;
    icon->setPixmap(programIcon().pixmap(kIconSize));
    row->addWidget(icon);
    auto* const texts = new QVBoxLayout;
    texts->addWidget(heading());
    texts->addWidget(
        plainLabel(QStringLiteral("A contact management and a connections finder tool.")));
    row->addLayout(texts, 1);
    return row;
}

QString libraries() {
    QStringList names{QStringLiteral("Qt ") + qVersion()};
    for (const std::string& name : mailLibraries())
        names += QString::fromStdString(name);
    names += QStringLiteral("OpenSSL ") + OpenSSL_version(OPENSSL_VERSION_STRING);
    names +=
        QStringLiteral("libetpan %1.%2").arg(LIBETPAN_VERSION_MAJOR).arg(LIBETPAN_VERSION_MINOR);
    names += QStringLiteral("pugixml %1.%2")
                 .arg(PUGIXML_VERSION / 1000)
                 .arg(PUGIXML_VERSION % 1000 / 10);
    names += QStringLiteral("QtKeychain " PELK_KEYCHAIN_VERSION);
    return QStringLiteral("Libraries: ") + names.join(QStringLiteral(", "));
}

QPlainTextEdit* licence() {
    auto* const text = new QPlainTextEdit(QString::fromUtf8(kLicence));
    text->setReadOnly(true);
    text->setAccessibleName(QStringLiteral("Licence"));
    // So wide that no line wraps.
    const QFontMetrics letters = text->fontMetrics();
    text->setMinimumSize(letters.size(0, text->toPlainText()).width() + kBesideText,
                         letters.lineSpacing() * kLicenceRows);
    return text;
}

}  // namespace

AboutBox::AboutBox(QWidget* parent, std::function<void(const std::string&)> openHelp)
    : QDialog(parent), openHelp_(std::move(openHelp)) {
    setWindowTitle(QStringLiteral("About Pelk"));
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(titleRow());
    if (openHelp_) {
        auto* const links = new QLabel(QStringLiteral(
            "<a href=\"index.html\">Help</a> &nbsp; <a href=\"privacy.html\">Your data</a> &nbsp; "
            "<a href=\"trouble.html\">If something goes wrong</a>"));
        connect(links, &QLabel::linkActivated, this,
                [this](const QString& page) { openHelp_(page.toStdString()); });
        layout->addWidget(links);
    }
    layout->addWidget(plainLabel(libraries()));
    layout->addWidget(licence(), 1);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    layout->addWidget(buttons);
}

}  // namespace pelk
