#include "mailstore/special_folder.h"

#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "mailstore/mail_text.h"

namespace pelk {
namespace {

struct Purpose {
    DefaultFolder kind;
    std::string_view name;
};

constexpr auto kOutbox = DefaultFolder::Outbox;
constexpr auto kDeleted = DefaultFolder::DeletedItems;
constexpr auto kDrafts = DefaultFolder::Drafts;
constexpr auto kJunk = DefaultFolder::Junk;

// The English names that Thunderbird, Apple Mail, Outlook and common servers use, then the names of
// Gmail's labels and IMAP folders in each of its languages, as its own pages show them. A language
// has several names where the wording has changed or differs by country.
constexpr Purpose kPurposes[] = {
    {kOutbox, "Outbox"},
    {kOutbox, "Unsent"},
    {kOutbox, "Unsent Messages"},
    {kDeleted, "Trash"},
    {kDeleted, "Bin"},
    {kDeleted, "Deleted"},
    {kDeleted, "Deleted Items"},
    {kDeleted, "Deleted Messages"},
    {kDrafts, "Draft"},
    {kDrafts, "Drafts"},
    {kDrafts, "Templates"},
    {kJunk, "Junk"},
    {kJunk, "Junk Mail"},
    {kJunk, "Junk E-mail"},
    {kJunk, "Junk Email"},
    {kJunk, "Spam"},
    {kJunk, "Bulk"},
    {kJunk, "Bulk Mail"},
    // Arabic
    {kDeleted, "المهملات"},
    {kDrafts, "المسودات"},
    {kDrafts, "مسودات"},
    {kJunk, "الرسائل غير المرغوب فيها"},
    {kJunk, "بريد غير مرغوب فيه"},
    // Bengali
    {kDeleted, "ট্র্যাশ"},
    {kDrafts, "খসড়া"},
    {kDrafts, "ড্রাফ্ট"},
    {kJunk, "স্প্যাম"},
    // Chinese, simplified and traditional
    {kDeleted, "已删除邮件"},
    {kDeleted, "已刪除的郵件"},
    {kDeleted, "垃圾桶"},
    {kDrafts, "草稿"},
    {kJunk, "垃圾邮件"},
    {kJunk, "垃圾郵件"},
    // Czech
    {kDeleted, "Koš"},
    {kDrafts, "Koncepty"},
    // Danish
    {kDeleted, "Papirkurv"},
    {kDrafts, "Kladder"},
    // Dutch
    {kDeleted, "Prullenbak"},
    {kDrafts, "Concepten"},
    // Finnish
    {kDeleted, "Roskakori"},
    {kDrafts, "Luonnokset"},
    {kJunk, "Roskaposti"},
    // French
    {kDeleted, "Corbeille"},
    {kDrafts, "Brouillons"},
    {kJunk, "Pourriel"},
    // German
    {kDeleted, "Papierkorb"},
    {kDrafts, "Entwürfe"},
    // Greek
    {kDeleted, "Κάδος απορριμμάτων"},
    {kDrafts, "Πρόχειρα"},
    {kJunk, "Ανεπιθύμητα"},
    // Hebrew
    {kDeleted, "אשפה"},
    {kDrafts, "טיוטות"},
    {kJunk, "ספאם"},
    // Hindi
    {kDeleted, "ट्रैश"},
    {kDeleted, "ट्रैश करें"},
    {kDrafts, "ड्राफ़्ट"},
    {kDrafts, "ड्राफ्ट"},
    {kJunk, "स्पैम"},
    // Hungarian
    {kDeleted, "Kuka"},
    {kDrafts, "Piszkozatok"},
    // Indonesian and Malay
    {kDeleted, "Tong Sampah"},
    {kDeleted, "Sampah"},
    {kDrafts, "Draf"},
    // Italian
    {kDeleted, "Cestino"},
    {kDrafts, "Bozze"},
    // Japanese
    {kDeleted, "ゴミ箱"},
    {kDrafts, "下書き"},
    {kJunk, "迷惑メール"},
    // Korean
    {kDeleted, "휴지통"},
    {kDrafts, "임시보관함"},
    {kJunk, "스팸함"},
    // Norwegian and Swedish
    {kDeleted, "Papperskorgen"},
    {kDrafts, "Utkast"},
    {kJunk, "Søppelpost"},
    {kJunk, "Skräppost"},
    // Persian
    {kDeleted, "زباله‌دان"},
    {kDrafts, "پیش‌نویس‌ها"},
    {kDrafts, "پیش‌نویس"},
    {kJunk, "هرزنامه"},
    // Polish
    {kDeleted, "Kosz"},
    {kDrafts, "Wersje robocze"},
    {kDrafts, "Szkice"},
    // Portuguese
    {kDeleted, "Lixeira"},
    {kDeleted, "Lixo"},
    {kDrafts, "Rascunhos"},
    // Romanian
    {kDeleted, "Coș de gunoi"},
    {kDeleted, "Coş de gunoi"},
    {kDrafts, "Mesaje nefinalizate"},
    // Russian
    {kDeleted, "Корзина"},
    {kDrafts, "Черновики"},
    {kJunk, "Спам"},
    // Spanish
    {kDeleted, "Papelera"},
    {kDrafts, "Borradores"},
    // Thai
    {kDeleted, "ถังขยะ"},
    {kDrafts, "ร่างจดหมาย"},
    {kJunk, "จดหมายขยะ"},
    // Turkish
    {kDeleted, "Çöp Kutusu"},
    {kDrafts, "Taslaklar"},
    // Ukrainian
    {kDeleted, "Кошик"},
    {kDrafts, "Чернетки"},
    // Vietnamese
    {kDeleted, "Thùng rác"},
    {kDrafts, "Thư nháp"},
    {kJunk, "Thư rác"},
};

// The English names first, then those in other languages, of the same programs.
constexpr std::string_view kSentNames[] = {
    "Sent",
    "Sent Items",
    "Sent Mail",
    "Sent-Mail",
    "Sent Messages",
    // Arabic
    "البريد المرسل",
    "الرسائل المرسلة",
    // Chinese, simplified and traditional
    "已发送",
    "已发送邮件",
    "寄件備份",
    // Czech
    "Odeslané",
    "Odeslaná pošta",
    // Danish and Norwegian
    "Sendt",
    "Sendt post",
    "Sendt e-post",
    "Sendte elementer",
    // Dutch
    "Verzonden",
    "Verzonden items",
    "Verzonden berichten",
    // Finnish
    "Lähetetyt",
    // French
    "Envoyés",
    "Messages envoyés",
    "Éléments envoyés",
    // German
    "Gesendet",
    "Gesendete Elemente",
    "Gesendete Objekte",
    "Gesendete Nachrichten",
    // Greek
    "Απεσταλμένα",
    // Hungarian
    "Elküldött",
    "Elküldött levelek",
    "Elküldött elemek",
    // Indonesian
    "Terkirim",
    // Italian
    "Inviati",
    "Posta inviata",
    // Japanese
    "送信済み",
    "送信済みメール",
    "送信済みアイテム",
    // Korean
    "보낸편지함",
    // Polish
    "Wysłane",
    "Elementy wysłane",
    // Portuguese and Spanish
    "Enviados",
    "Enviadas",
    "E-mails enviados",
    "Itens enviados",
    "Elementos enviados",
    // Romanian
    "Trimise",
    "Mesaje trimise",
    // Russian and Ukrainian
    "Отправленные",
    "Надіслані",
    // Swedish
    "Skickat",
    "Skickade meddelanden",
    // Turkish
    "Gönderilmiş Postalar",
    "Gönderilmiş Öğeler",
    // Vietnamese
    "Thư đã gửi",
};

}  // namespace

std::optional<DefaultFolder> folderCalled(std::string_view name) {
    static const auto byName = [] {
        std::unordered_map<std::string, DefaultFolder> map;
        for (const Purpose& purpose : kPurposes)
            map.emplace(foldCase(purpose.name), purpose.kind);
        return map;
    }();
    const auto found = byName.find(foldCase(name));
    return found == byName.end() ? std::nullopt : std::optional(found->second);
}

bool isSentMailName(std::string_view name) {
    static const auto names = [] {
        std::unordered_set<std::string> set;
        for (const std::string_view one : kSentNames)
            set.insert(foldCase(one));
        return set;
    }();
    return names.contains(foldCase(name));
}

bool isContainerName(std::string_view name) {
    return equalsIgnoringCase(name, "INBOX") || equalsIgnoringCase(name, "[Gmail]") ||
           equalsIgnoringCase(name, "[Google Mail]");
}

}  // namespace pelk
