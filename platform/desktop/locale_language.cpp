#include "platform/desktop/locale_language.h"

#include <QCollator>
#include <QLocale>
#include <QString>
#include <QStringDecoder>
#include <algorithm>
#include <numeric>

#include "platform/ascii.h"

namespace pelk {

namespace {

QByteArrayView toQt(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

LocaleLanguage::LocaleLanguage()
    : LocaleLanguage(QLocale::system().collation().name().toStdString()) {}

LocaleLanguage::LocaleLanguage(const std::string& name) {
    QLocale locale(QString::fromStdString(name));
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English);
    collator_ = std::make_unique<QCollator>(locale);
    collator_->setCaseSensitivity(Qt::CaseInsensitive);
    collator_->setNumericMode(false);
}

LocaleLanguage::~LocaleLanguage() = default;

std::vector<std::size_t> LocaleLanguage::alphabeticalOrder(
    const std::vector<std::string_view>& texts) const {
    std::vector<QCollatorSortKey> keys;
    keys.reserve(texts.size());
    for (const std::string_view text : texts)
        keys.push_back(collator_->sortKey(QString::fromUtf8(toQt(text))));
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&keys](std::size_t left, std::size_t right) {
        return keys[left].compare(keys[right]) < 0;
    });
    return order;
}

bool LocaleLanguage::startsWith(std::string_view text, std::string_view start) const {
    const std::string_view head = text.substr(0, start.size());
    if (isAscii(head) && isAscii(start))
        return std::equal(
            start.begin(), start.end(), head.begin(), head.end(),
            [](char left, char right) { return lowerAscii(left) == lowerAscii(right); });
    return QString::fromUtf8(toQt(text))
        .startsWith(QString::fromUtf8(toQt(start)), Qt::CaseInsensitive);
}

/// Character by character, so that the length in characters stays. Text that is not UTF-8 has its
/// Latin letters changed and all else left as it is: it must not become another one's text.
std::string LocaleLanguage::lowerCase(std::string_view text) const {
    if (isAscii(text))
        return lowerAscii(text);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString decoded = decoder(toQt(text));
    if (decoder.hasError())
        return lowerAscii(text);
    QList<uint> characters = decoded.toUcs4();
    for (uint& character : characters)
        character = QChar::toLower(character);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()),
                             characters.size())
        .toStdString();
}

}  // namespace pelk
