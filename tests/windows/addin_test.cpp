// The add-in from outside, as the mail client uses it: made, connected, clicked, disconnected.

#include <gtest/gtest.h>

#include <optional>

#include "apps/addin/addin_interfaces.h"
#include "db/storage.h"
#include "platform/windows/mail/dispatch.h"
#include "platform/windows/windows_platform.h"
#include "tests/support/test_platform.h"
#include "tests/windows/addin_library.h"
#include "tests/windows/scripted_object.h"
#include "tests/windows/stand_in_client.h"

namespace pelk {
namespace {

const std::vector<std::string> kMenu{"View your community", "Check for new e-mails", "About"};

class AddinTest : public ::testing::Test {
 protected:
    void SetUp() override {
        host.mail.stores = {{"Post",
                             {mail("a@x", {"b@x", "c@x"}), mail("b@x", {"a@x"})},
                             {{"Outbox", {}, {}}, {"Deleted Items", {}, {}}}}};
    }

    struct Apartment {
        Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
        ~Apartment() { CoUninitialize(); }
    };

    Apartment apartment;
    const DatabaseAside aside;
    const std::unique_ptr<Driver> driver = makeDriver();
    StandInClient host;
    std::optional<AddinLibrary> library{std::in_place};

    ComPtr<IDTExtensibility2> create() { return library->create<IDTExtensibility2>(kConnectClass); }
    void connect(const ComPtr<IDTExtensibility2>& addin,
                 ConnectMode mode = ConnectMode::AfterStartup) {
        EXPECT_EQ(addin->OnConnection(host.application().get(), mode, nullptr, nullptr), S_OK);
    }
    void disconnect(const ComPtr<IDTExtensibility2>& addin) {
        EXPECT_EQ(addin->OnDisconnection(1, nullptr), S_OK);
    }
    /// Answers the next box, which must say that. It may take a moment to come up.
    void expectBox(const std::string& text, int patience = 100) {
        driver->later([this, text, patience] {
            if (!driver->isWindowShown("Pelk") && patience > 0)
                return expectBox(text, patience - 1);
            EXPECT_TRUE(driver->isLabelShown(text)) << text;
            driver->clickButton("OK");
            ++boxesSeen;
        });
    }
    int boxesSeen = 0;
};

TEST_F(AddinTest, connectsAsOftenAsTheClientLikes) {
    {
        const auto addin = create();
        ASSERT_TRUE(addin);
        EXPECT_FALSE(library->canUnload());
        const ComPtr<IDispatch> dispatch = addin.query<IDispatch>(IID_IDispatch);
        const Dispatch byName(dispatch, "the add-in", std::make_shared<MemberIds>());
        for (const bool isByName : {false, true}) {
            if (isByName)
                byName.call("OnConnection", {variantOf(host.application()), variantOf(0)});
            else
                connect(addin);
            EXPECT_EQ(host.menu(), kMenu);
            ASSERT_TRUE(host.click("About"));
            driver->settle();
            EXPECT_TRUE(driver->isWindowShown("About Pelk"));
            disconnect(addin);
            EXPECT_TRUE(host.menu().empty());
            EXPECT_FALSE(driver->isWindowShown("About Pelk"));
        }
        for (const HRESULT result :
             {addin->OnAddInsUpdate(nullptr), addin->OnStartupComplete(nullptr),
              addin->OnBeginShutdown(nullptr), addin->OnDisconnection(0, nullptr)})
            EXPECT_EQ(result, S_OK);
    }
    EXPECT_TRUE(library->canUnload());
}

TEST_F(AddinTest, canBeUnloadedAndLoadedAgain) {
    for (int load = 0; load < 2; ++load) {
        auto addin = create();
        connect(addin);
        ASSERT_TRUE(host.click("About"));
        driver->settle();
        EXPECT_TRUE(driver->isWindowShown("About Pelk"));
        disconnect(addin);
        addin.reset();
        ASSERT_TRUE(library->canUnload());
        library.reset();
        driver->settle();
        EXPECT_EQ(GetModuleHandleW(L"pelk.dll"), nullptr);
        library.emplace();
    }
}

TEST_F(AddinTest, scansTheMailOfTheClientAndShowsIt) {
    const auto addin = create();
    connect(addin);
    driver->later([this] { driver->clickButton("Start"); });
    ASSERT_TRUE(host.click("View your community"));
    driver->settle();
    EXPECT_TRUE(driver->isWindowShown("Relations Tree"));
    EXPECT_EQ(host.mail.openItems, 0);
    disconnect(addin);
    EXPECT_FALSE(driver->isWindowShown("Relations Tree"));

    WindowsPlatform platform;
    ScriptedDialogs dialogs;
    const auto saved = Storage(platform.with(dialogs)).loadDatabase();
    EXPECT_EQ(saved->totalMails(), "2");
    EXPECT_NE(saved->contactIdByAddress("c@x"), 0);
}

TEST_F(AddinTest, outlivesAClientThatDisconnectsDuringACommand) {
    auto addin = create();
    connect(addin);
    driver->later([this, &addin] {
        disconnect(addin);
        addin.reset();
        EXPECT_FALSE(library->canUnload());
        driver->clickButton("Cancel");
    });
    EXPECT_TRUE(host.click("Check for new e-mails"));
    EXPECT_TRUE(host.menu().empty());
    EXPECT_TRUE(library->canUnload());
}

TEST_F(AddinTest, cleansUpWhenTheClientLeavesWithoutAWord) {
    auto addin = create();
    connect(addin);
    host.click("About");
    addin.reset();
    EXPECT_FALSE(driver->isWindowShown("About Pelk"));
    EXPECT_FALSE(host.click("About"));
    EXPECT_TRUE(library->canUnload());
}

TEST_F(AddinTest, waitsForTheWindowWhileTheClientStarts) {
    host.hasWindow = false;
    const auto addin = create();
    connect(addin, ConnectMode::Startup);
    host.hasWindow = true;
    EXPECT_EQ(addin->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(host.menu(), kMenu);
    disconnect(addin);
}

TEST_F(AddinTest, tellsTheUserWhatFailsAndTheClientThatAllIsWell) {
    const auto addin = create();
    host.refusesControls = true;
    expectBox(
        "The mail client refuses Add of the controls of a command bar: No room on the tool bar.");
    connect(addin);
    EXPECT_EQ(boxesSeen, 1);
    host.refusesControls = false;
    host.hasWindow = false;
    connect(addin, ConnectMode::Startup);
    expectBox("The mail client shows no mail window that could hold the menu.");
    EXPECT_EQ(addin->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(boxesSeen, 2);
    expectBox("The mail client did not introduce itself.");
    EXPECT_EQ(addin->OnConnection(nullptr, ConnectMode::Startup, nullptr, nullptr), S_OK);
    EXPECT_EQ(boxesSeen, 3);
}

class RibbonTest : public AddinTest {
 protected:
    ComPtr<IDTExtensibility2> addin = create();

    std::string ribbon(const wchar_t* id) {
        const auto extension = addin.query<IRibbonExtensibility>(__uuidof(IRibbonExtensibility));
        Bstr xml;
        EXPECT_EQ(extension->GetCustomUI(Bstr(std::wstring_view(id)).get(), xml.put()), S_OK);
        return xml.utf8();
    }
    /// The answers to `expression` in the ribbon's description, one after the other.
    std::string look(const std::string& xml, const std::string& expression) {
        ComPtr<IDispatch> document;
        CLSID classId;
        CLSIDFromProgID(L"Msxml2.DOMDocument.6.0", &classId);
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                         reinterpret_cast<void**>(document.put()));
        const Dispatch dom(document, "a document", std::make_shared<MemberIds>());
        EXPECT_NE(dom.call("loadXML", {variantOf(xml)}).boolVal, VARIANT_FALSE) << xml;
        dom.call("setProperty",
                 {variantOf("SelectionNamespaces"),
                  variantOf("xmlns:r='http://schemas.microsoft.com/office/2009/07/customui'")});
        const Dispatch nodes = dom.object("selectNodes", "a list", {variantOf(expression)});
        std::string found;
        while (const auto node = nodes.objectIfAny("nextNode", "a node"))
            found += (found.empty() ? "" : ",") + node->text("text");
        return found;
    }
};

TEST_F(RibbonTest, takesThePlaceOfTheMenuInClientsThatHaveOne) {
    host.version = "14.0.0.4760";
    connect(addin, ConnectMode::Startup);
    EXPECT_EQ(addin->OnStartupComplete(nullptr), S_OK);
    EXPECT_TRUE(host.standardBar->controls.empty());

    const std::string xml = ribbon(L"Microsoft.Outlook.Explorer");
    const std::string group = "/r:customUI/r:ribbon/r:tabs/r:tab[@idMso='TabMail']/r:group";
    EXPECT_EQ(look(xml, group + "/@label"), "Pelk");
    EXPECT_EQ(look(xml, group + "/r:button/@label"),
              "View your community,Check for new e-mails,About");
    EXPECT_EQ(look(xml, "//r:button[not(@screentip) or not(@supertip) or not(@onAction)]"), "");
    EXPECT_EQ(look(xml, "//@id[. = ../preceding::*/@id]"), "");
    EXPECT_EQ(ribbon(L"Microsoft.Outlook.Mail.Read"), "");

    const ComPtr<IDispatch> dispatch = addin.query<IDispatch>(IID_IDispatch);
    const Dispatch callbacks(dispatch, "the add-in", std::make_shared<MemberIds>());
    callbacks.call(look(xml, "//r:button[last()]/@onAction").c_str(),
                   {variantOf(ribbonControl(look(xml, "//r:button[last()]/@tag")))});
    driver->settle();
    EXPECT_TRUE(driver->isWindowShown("About Pelk"));
    disconnect(addin);
    EXPECT_FALSE(driver->isWindowShown("About Pelk"));
}

TEST_F(RibbonTest, staysEmptyInClientsThatHaveTheMenu) {
    for (const char* version : {"12.0.0.4518", ""}) {
        host.version = version;
        connect(addin);
        EXPECT_EQ(host.menu(), kMenu);
        EXPECT_EQ(ribbon(L"Microsoft.Outlook.Explorer"), "");
        disconnect(addin);
    }
}

TEST_F(AddinTest, isFoundThroughTheRegistryOfTheUserAndLeavesNothingThere) {
    const auto registered = [](const wchar_t* key, const wchar_t* value) {
        wchar_t text[MAX_PATH] = L"";
        DWORD size = sizeof text;
        DWORD number = 0;
        DWORD type = 0;
        if (RegGetValueW(HKEY_CURRENT_USER, key, value, RRF_RT_ANY, &type, text, &size) != 0)
            return std::string("none");
        CopyMemory(&number, text, sizeof number);
        return type == REG_DWORD ? std::to_string(number) : toUtf8(text);
    };
    constexpr const wchar_t* kKey = L"Software\\Microsoft\\Office\\Outlook\\Addins\\Pelk.Connect";
    linkUserClasses();
    ASSERT_TRUE(runRegistrar(false));
    EXPECT_EQ(registered(kKey, L"FriendlyName"), "Pelk");
    EXPECT_EQ(registered(kKey, L"Description"), "Pelk addin for MS Outlook");
    EXPECT_EQ(registered(kKey, L"LoadBehavior"), "3");
    EXPECT_EQ(registered(kKey, L"CommandLineSafe"), "0");

    CLSID classId;
    ASSERT_EQ(CLSIDFromProgID(L"Pelk.Connect", &classId), S_OK);
    EXPECT_EQ(classId, kConnectClass);
    ComPtr<IDTExtensibility2> addin;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDTExtensibility2),
                               reinterpret_cast<void**>(addin.put())),
              S_OK);
    if (addin) {
        connect(addin);
        EXPECT_EQ(host.menu(), kMenu);
        disconnect(addin);
    }
    ComPtr<IDatabaseCipher> cipher;
    EXPECT_EQ(CoCreateInstance(kDatabaseCipherClass, nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(IDatabaseCipher), reinterpret_cast<void**>(cipher.put())),
              S_OK);

    ASSERT_TRUE(runRegistrar(true));
    EXPECT_EQ(registered(kKey, L"FriendlyName"), "none");
    EXPECT_NE(CLSIDFromProgID(L"Pelk.Connect", &classId), S_OK);
}

TEST_F(AddinTest, ciphersForAnyClient) {
    const auto cipher = library->create<IDatabaseCipher>(kDatabaseCipherClass);
    ASSERT_TRUE(cipher);
    const Bstr plain(std::string_view("<a>\xC3\xA4\xF0\x9F\x98\x80</a>"));
    EXPECT_EQ(cipher->SetKey(Bstr(std::string_view("key")).get(), 0), S_OK);
    EXPECT_EQ(cipher->SetPlainText(plain.get()), S_OK);
    Bstr secret;
    EXPECT_EQ(cipher->GetCipherText(0, secret.put()), S_OK);
    EXPECT_TRUE(secret.utf8().starts_with("PELK1:"));

    const auto other = library->create<IDispatch>(kDatabaseCipherClass);
    const Dispatch byName(other, "a cipher", std::make_shared<MemberIds>());
    byName.call("setKey", {variantOf("key"), variantOf(0)});
    byName.call("SetCipherText", {variantOf(secret.utf8() + "\r\n")});
    EXPECT_EQ(byName.text("GetPlainText"), plain.utf8());
    std::string fault;
    try {
        byName.call("SetCipherText", {variantOf("PELK1:AAAA")});
    } catch (const Error& error) {
        fault = error.what();
    }
    EXPECT_EQ(fault,
              "The mail client refuses SetCipherText of a cipher: It is cut short or damaged.");
    EXPECT_FALSE(library->create<IUnknown>(IID_IUnknown));
}

}  // namespace
}  // namespace pelk
