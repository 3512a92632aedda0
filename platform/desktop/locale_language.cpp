#include "platform/desktop/locale_language.h"

#include <QCollator>
#include <QLocale>
#include <QString>
#include <QStringDecoder>
#include <algorithm>
#include <iterator>
#include <span>

#include "platform/accents.h"
#include "platform/ascii.h"
#include "platform/parallel.h"

namespace pelk {
namespace {

QByteArrayView toQt(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

struct Entry {
    QCollatorSortKey key;
    std::size_t position;
};
using Entries = std::vector<Entry>;

bool comesBefore(const Entry& left, const Entry& right) {
    return left.key.compare(right.key) < 0;
}

/// Returns the texts' sort keys in alphabetical order.
Entries sortedEntries(std::span<const std::string_view> texts, std::size_t firstPosition,
                      const QCollator& collator) {
    Entries entries;
    entries.reserve(texts.size());
    for (const std::string_view text : texts)
        entries.push_back(
            {collator.sortKey(QString::fromUtf8(toQt(text))), firstPosition + entries.size()});
    std::stable_sort(entries.begin(), entries.end(), comesBefore);
    return entries;
}

/// Sorts two halves at the same time, because sort keys of many texts take long.
Entries sortedHalves(std::span<const std::string_view> texts, const QCollator& collator,
                     const QCollator& other) {
    const std::size_t middle = texts.size() / 2;
    Entries first;
    Entries second;
    runInParallel([&] { second = sortedEntries(texts.subspan(middle), middle, other); },
                  [&] { first = sortedEntries(texts.first(middle), 0, collator); });
    Entries all;
    all.reserve(texts.size());
    std::merge(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(all),
               comesBefore);
    return all;
}

}  // namespace

LocaleLanguage::LocaleLanguage()
    : LocaleLanguage(QLocale::system().collation().name().toStdString()) {}

LocaleLanguage::LocaleLanguage(const std::string& name) {
    QLocale locale(QString::fromStdString(name));
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English);
    for (std::unique_ptr<QCollator>& collator : collators_) {
        collator = std::make_unique<QCollator>(locale);
        collator->setCaseSensitivity(Qt::CaseInsensitive);
        collator->setNumericMode(false);
    }
}

LocaleLanguage::~LocaleLanguage() = default;

std::vector<std::size_t> LocaleLanguage::alphabeticalOrder(
    const std::vector<std::string_view>& texts) const {
    constexpr std::size_t kMany = 1000;
    const Entries entries = texts.size() < kMany
                                ? sortedEntries(texts, 0, *collators_[0])
                                : sortedHalves(texts, *collators_[0], *collators_[1]);
    std::vector<std::size_t> order;
    order.reserve(entries.size());
    for (const Entry& entry : entries)
        order.push_back(entry.position);
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

/// Converts character by character, so that the number of characters stays the same. In text that
/// is not UTF-8 only the ASCII letters change: replacing the other bytes could make two texts
/// equal.
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

std::string LocaleLanguage::folded(std::string_view text) const {
    if (isAscii(text))
        return lowerAscii(text);
    return withoutAccents(QString::fromUtf8(toQt(text))
                              .normalized(QString::NormalizationForm_KD)
                              .toCaseFolded()
                              .toStdString());
}

}  // namespace pelk
