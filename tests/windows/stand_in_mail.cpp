#include "tests/windows/stand_in_mail.h"

#include <algorithm>

#include "platform/windows/mail/dispatch.h"
#include "tests/windows/scripted_object.h"

namespace pelk {
namespace {

constexpr IID kMailInterface{
    0x00063034, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr DefaultFolder kDefaultFolders[] = {DefaultFolder::Outbox, DefaultFolder::DeletedItems};

/// One open e-mail of which the server keeps count.
class OpenItem {
 public:
    explicit OpenItem(StandInMail& mail) : mail_(mail) {
        mail_.mostOpenItems = std::max(mail_.mostOpenItems, ++mail_.openItems);
    }
    OpenItem(const OpenItem&) = delete;
    OpenItem& operator=(const OpenItem&) = delete;
    ~OpenItem() { --mail_.openItems; }

 private:
    StandInMail& mail_;
};

Variant textVariant(const std::string& text) {
    return Variant(std::string_view(text));
}

std::size_t indexIn(const Arguments& arguments, std::size_t count) {
    const int index = arguments.empty() || arguments[0].vt != VT_I4 ? 0 : arguments[0].lVal;
    if (index < 1 || static_cast<std::size_t>(index) > count)
        throw Raised{E_INVALIDARG, "Array index out of bounds."};
    return static_cast<std::size_t>(index) - 1;
}

std::string smtpAddress(const StandInMail& mail, const MailPerson& person) {
    const auto found = mail.directory.find(person.address);
    if (found == mail.directory.end())
        throw Raised{static_cast<HRESULT>(0x8004010F), "The property is unknown."};
    return found->second;
}

ComPtr<ScriptedObject> serveAccessor(StandInMail& mail, const MailPerson& person) {
    auto accessor = makeObject();
    accessor->member(L"GetProperty", 0xFAFB, [&mail, person](const Arguments& arguments) {
        if (!mail.directoryKnowsProperty || arguments.size() != 1 ||
            Bstr(arguments[0].bstrVal).utf8() !=
                "http://schemas.microsoft.com/mapi/proptag/0x39FE001E")
            throw Raised{static_cast<HRESULT>(0x8004010F), "The property is unknown."};
        return textVariant(smtpAddress(mail, person));
    });
    return accessor;
}

ComPtr<ScriptedObject> serveAddressEntry(StandInMail& mail, const MailPerson& person) {
    auto entry = makeObject();
    entry->member(L"GetExchangeUser", 0xFAF1, [&mail, person](const Arguments&) {
        if (!mail.directory.contains(person.address))
            return variantOf(static_cast<IDispatch*>(nullptr));
        auto user = makeObject();
        user->member(L"PrimarySmtpAddress", 0xFB01, [&mail, person](const Arguments&) {
            return textVariant(smtpAddress(mail, person));
        });
        return variantOf(user);
    });
    return entry;
}

ComPtr<ScriptedObject> servePerson(StandInMail& mail, const MailPerson& person) {
    auto recipient = makeObject();
    recipient->member(L"Name", 0x3001,
                      [person](const Arguments&) { return textVariant(person.name); });
    recipient->member(L"Address", 0x3003, [person](const Arguments&) {
        if (person.address.empty())
            throw Raised{static_cast<HRESULT>(0x8004010F), "The address is missing."};
        return textVariant(person.address);
    });
    recipient->member(L"PropertyAccessor", 0xFAFD, [&mail, person](const Arguments&) {
        return variantOf(serveAccessor(mail, person));
    });
    recipient->member(L"AddressEntry", 0x79, [&mail, person](const Arguments&) {
        return variantOf(serveAddressEntry(mail, person));
    });
    return recipient;
}

Variant servePeople(StandInMail& mail, const std::vector<MailPerson>& people) {
    if (mail.refusesPeople)
        throw Raised{E_ABORT, ""};
    auto recipients = makeObject();
    const int count = static_cast<int>(people.size());
    recipients->member(L"Count", 0x50, [count](const Arguments&) { return variantOf(count); });
    recipients->member(L"Item", 0x51, [&mail, people](const Arguments& arguments) {
        return variantOf(servePerson(mail, people[indexIn(arguments, people.size())]));
    });
    return variantOf(recipients);
}

Variant dateOf(const LocalTime& time) {
    SYSTEMTIME system{};
    system.wYear = static_cast<WORD>(time.year);
    system.wMonth = static_cast<WORD>(time.month);
    system.wDay = static_cast<WORD>(time.day);
    system.wHour = static_cast<WORD>(time.hour);
    system.wMinute = static_cast<WORD>(time.minute);
    system.wSecond = static_cast<WORD>(time.second);
    Variant date;
    date.vt = VT_DATE;
    SystemTimeToVariantTime(&system, &date.date);
    return date;
}

Variant serveReply(StandInMail& mail, const MemoryItem& item) {
    auto reply = makeObject();
    const auto open = std::make_shared<OpenItem>(mail);
    reply->member(L"Recipients", 0xF814, [&mail, open, item](const Arguments&) {
        std::vector<MailPerson> people;
        if (item.hasSender)
            people.push_back(item.sender);
        return servePeople(mail, people);
    });
    return variantOf(reply);
}

Variant serveItem(StandInMail& mail, const MemoryItem& item) {
    auto served = makeObject();
    const auto open = std::make_shared<OpenItem>(mail);
    served->member(L"CreationTime", 0x3007,
                   [item](const Arguments&) { return dateOf(item.created); });
    served->member(L"Recipients", 0xF814, [&mail, open, item](const Arguments&) {
        return servePeople(mail, item.recipients);
    });
    if (item.isMail) {
        served->setKind(kMailInterface);
        served->member(L"Reply", 0xF810,
                       [&mail, item](const Arguments&) { return serveReply(mail, item); });
    }
    return variantOf(served);
}

Variant serveItems(StandInMail& mail, const MemoryFolder& folder) {
    if (folder.refuses)
        throw Raised{E_FAIL, "The folder cannot be opened."};
    auto items = makeObject();
    items->member(L"Count", 0x50, [&folder](const Arguments&) {
        return variantOf(static_cast<int>(folder.items.size()));
    });
    items->member(L"Item", 0x51, [&mail, &folder](const Arguments& arguments) {
        return serveItem(mail, folder.items[indexIn(arguments, folder.items.size())]);
    });
    return variantOf(items);
}

Variant serveFolders(StandInMail& mail, const std::vector<MemoryFolder>& folders,
                     const std::string& path);

Variant serveFolder(StandInMail& mail, const MemoryFolder& folder, const std::string& path) {
    auto served = makeObject();
    served->member(L"Name", 0x3001,
                   [&folder](const Arguments&) { return textVariant(folder.name); });
    served->member(L"EntryID", 0xF01E, [path](const Arguments&) { return textVariant(path); });
    served->member(L"DefaultItemType", 0x3106,
                   [&folder](const Arguments&) { return variantOf(folder.itemType); });
    served->member(L"Items", 0x3100,
                   [&mail, &folder](const Arguments&) { return serveItems(mail, folder); });
    served->member(L"Folders", 0x2103, [&mail, &folder, path](const Arguments&) {
        return serveFolders(mail, folder.folders, path);
    });
    return variantOf(served);
}

/// Each collection has a position of its own.
Variant serveFolders(StandInMail& mail, const std::vector<MemoryFolder>& folders,
                     const std::string& path) {
    auto served = makeObject();
    const auto position = std::make_shared<std::size_t>(0);
    const auto step = [&mail, &folders, path, position] {
        if (*position >= folders.size())
            return variantOf(static_cast<IDispatch*>(nullptr));
        const MemoryFolder& folder = folders[(*position)++];
        return serveFolder(mail, folder, path + "/" + folder.name);
    };
    served->member(L"GetFirst", 0x56, [position, step](const Arguments&) {
        *position = 0;
        return step();
    });
    served->member(L"GetNext", 0x57, [step](const Arguments&) { return step(); });
    return variantOf(served);
}

Variant serveDefaultFolder(StandInMail& mail, const Arguments& arguments) {
    for (const DefaultFolder kind : kDefaultFolders)
        for (const MemoryFolder& folder : mail.stores.front().folders)
            if (arguments.size() == 1 && arguments[0].lVal == static_cast<int>(kind) &&
                folder.name == (kind == DefaultFolder::Outbox ? "Outbox" : "Deleted Items"))
                return serveFolder(mail, folder,
                                   "/" + mail.stores.front().name + "/" + folder.name);
    throw Raised{static_cast<HRESULT>(0x8004010F), "There is no such folder."};
}

}  // namespace

ComPtr<IDispatch> serveMail(StandInMail& mail) {
    auto nameSpace = makeObject();
    nameSpace->member(L"Folders", 0x2103,
                      [&mail](const Arguments&) { return serveFolders(mail, mail.stores, ""); });
    nameSpace->member(L"GetDefaultFolder", 0x210B, [&mail](const Arguments& arguments) {
        return serveDefaultFolder(mail, arguments);
    });
    return nameSpace.query<IDispatch>(IID_IDispatch);
}

}  // namespace pelk
