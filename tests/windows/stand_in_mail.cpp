#include "tests/windows/stand_in_mail.h"

#include <algorithm>

#include "tests/windows/scripted_object.h"

namespace pelk {
namespace {

constexpr IID kMailInterface{
    0x00063034, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// One open e-mail, which counts against the server's limit.
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

[[noreturn]] void raiseUnknown(const char* text) {
    throw Raised{static_cast<HRESULT>(0x8004010F), text};
}

std::string smtpAddress(const StandInMail& mail, const MailPerson& person) {
    const auto found = mail.directory.find(person.address);
    if (found == mail.directory.end())
        raiseUnknown("The property is unknown.");
    return found->second;
}

Served serveAccessor(StandInMail& mail, const MailPerson& person) {
    const Served accessor = makeObject();
    accessor->member(L"GetProperty", [&mail, person](const Arguments& arguments) {
        if (!mail.directoryKnowsProperty || arguments.size() != 1 ||
            Bstr(arguments[0].bstrVal).utf8() !=
                "http://schemas.microsoft.com/mapi/proptag/0x39FE001E")
            raiseUnknown("The property is unknown.");
        return smtpAddress(mail, person);
    });
    return accessor;
}

Served serveAddressEntry(StandInMail& mail, const MailPerson& person) {
    const Served entry = makeObject();
    entry->member(L"GetExchangeUser", [&mail, person] {
        if (!mail.directory.contains(person.address))
            return Served();
        const Served user = makeObject();
        user->member(L"PrimarySmtpAddress", [&mail, person] { return smtpAddress(mail, person); });
        return user;
    });
    return entry;
}

Served servePerson(StandInMail& mail, const MailPerson& person) {
    const Served recipient = makeObject();
    recipient->member(L"Name", [person] {
        if (person.name.empty())
            raiseUnknown("The name is missing.");
        return person.name;
    });
    recipient->member(L"Address", [person] {
        if (person.address.empty())
            raiseUnknown("The address is missing.");
        return person.address;
    });
    recipient->member(L"PropertyAccessor", [&mail, person] { return serveAccessor(mail, person); });
    recipient->member(L"AddressEntry", [&mail, person] { return serveAddressEntry(mail, person); });
    return recipient;
}

Variant dateOf(const LocalTime& time) {
    const auto word = [](int number) { return static_cast<WORD>(number); };
    SYSTEMTIME system{word(time.year),   word(time.month),  0, word(time.day), word(time.hour),
                      word(time.minute), word(time.second), 0};
    Variant date;
    date.vt = VT_DATE;
    SystemTimeToVariantTime(&system, &date.date);
    return date;
}

using People = std::vector<MailPerson>;

Served servePeople(StandInMail& mail, const std::shared_ptr<People>& people) {
    if (mail.refusesPeople)
        throw Raised{E_ABORT, ""};
    return makeList(people,
                    [&mail](const MailPerson& person) { return servePerson(mail, person); });
}

/// The item counts as open while its people can be accessed.
void addPeople(const Served& item, StandInMail& mail, const People& all) {
    const auto open = std::make_shared<OpenItem>(mail);
    const auto people = std::make_shared<People>(all);
    item->member(L"Recipients", [&mail, open, people] { return servePeople(mail, people); });
}

/// Returns the header that says this, with one folded field.
std::string headerOf(const MailAutomation& automation) {
    std::string header = "Received: from x\r\n\tby y\r\n";
    for (const NamedList& list : automation.lists)
        header += list.field + ":\r\n <mailto:" + list.address + ">\r\n";
    return header + "PRECEDENCE: " + automation.precedence + "\r\n";
}

Served serveHeader(const MailAutomation& automation) {
    const Served accessor = makeObject();
    accessor->member(L"GetProperty", [automation](const Arguments& arguments) {
        if (automation == MailAutomation() || arguments.size() != 1 ||
            Bstr(arguments[0].bstrVal).utf8() !=
                "http://schemas.microsoft.com/mapi/proptag/0x007D001F")
            raiseUnknown("The property is unknown.");
        return headerOf(automation);
    });
    return accessor;
}

Served serveItem(StandInMail& mail, const MemoryItem& item) {
    const Served served = makeObject();
    served->member(L"CreationTime", [item] { return dateOf(item.created); });
    served->member(L"SentOn", [item] { return dateOf(item.sent.value_or(LocalTime{4501})); });
    served->member(L"PropertyAccessor", [item] { return serveHeader(item.automation); });
    addPeople(served, mail, item.recipients);
    if (item.isMail) {
        served->setKind(kMailInterface);
        served->member(L"Reply", [&mail, item] {
            const Served reply = makeObject();
            addPeople(reply, mail, item.hasSender ? People{item.sender} : People());
            return reply;
        });
    }
    return served;
}

Served serveFolders(StandInMail& mail, const std::vector<MemoryFolder>& folders,
                    const std::string& path);
Served serveNameSpace(StandInMail& mail);

Served serveFolder(StandInMail& mail, const MemoryFolder& folder, const std::string& path) {
    const Served served = makeObject();
    served->member(L"Name", [&folder] { return folder.name; });
    served->member(L"StoreID", [&folder] {
        if (folder.place.empty())
            raiseUnknown("The store does not tell.");
        return folder.place;
    });
    served->member(L"EntryID", [path] { return path; });
    served->member(L"Session", [&mail] { return serveNameSpace(mail); });
    served->member(L"DefaultItemType", [&folder] { return folder.holdsMail ? 0 : 1; });
    served->member(L"Items", [&mail, &folder] {
        if (folder.refuses)
            throw Raised{E_FAIL, "The folder cannot be opened."};
        return makeList(&folder.items,
                        [&mail](const MemoryItem& item) { return serveItem(mail, item); });
    });
    served->member(L"Folders",
                   [&mail, &folder, path] { return serveFolders(mail, folder.folders, path); });
    return served;
}

/// Each collection has a position of its own.
Served serveFolders(StandInMail& mail, const std::vector<MemoryFolder>& folders,
                    const std::string& path) {
    const Served served = makeObject();
    const auto position = std::make_shared<std::size_t>(0);
    const auto step = [&mail, &folders, path, position] {
        if (*position >= folders.size())
            return Served();
        const MemoryFolder& folder = folders[(*position)++];
        return serveFolder(mail, folder, path + "/" + folder.name);
    };
    served->member(L"GetFirst", [position, step] {
        *position = 0;
        return step();
    });
    served->member(L"GetNext", step);
    return served;
}

Served serveDefaultFolder(StandInMail& mail, const Arguments& arguments) {
    const MemoryFolder& store = mail.stores.front();
    for (const auto& [number, name] :
         {std::pair(4, "Outbox"), std::pair(3, "Deleted Items"), std::pair(5, "Sent Items")})
        for (const MemoryFolder& folder : store.folders)
            if (arguments.size() == 1 && arguments[0].lVal == number && folder.name == name)
                return serveFolder(mail, folder, "/" + store.name + "/" + name);
    raiseUnknown("There is no such folder.");
}

Served serveNameSpace(StandInMail& mail) {
    const Served nameSpace = makeObject();
    nameSpace->member(L"Folders", [&mail] { return serveFolders(mail, mail.stores, ""); });
    nameSpace->member(L"GetDefaultFolder", [&mail](const Arguments& arguments) {
        return serveDefaultFolder(mail, arguments);
    });
    nameSpace->member(L"Accounts", [&mail] {
        return makeList(&mail.accounts, [](const std::string& address) {
            const Served account = makeObject();
            account->member(L"SmtpAddress", [address] { return address; });
            return account;
        });
    });
    return nameSpace;
}

}  // namespace

ComPtr<IDispatch> serveMail(StandInMail& mail) {
    return serveNameSpace(mail).query<IDispatch>(IID_IDispatch);
}

}  // namespace pelk
