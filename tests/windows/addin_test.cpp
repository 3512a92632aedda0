// The add-in as the mail client uses it: created, connected, clicked, disconnected.

#include <set>

#include "apps/addin/addin_interfaces.h"
#include "db/storage.h"
#include "platform/windows/windows_platform.h"
#include "tests/support/message_of.h"
#include "tests/support/test_platform.h"
#include "tests/windows/addin_library.h"
#include "tests/windows/scripted_object.h"
#include "tests/windows/stand_in_client.h"

namespace pelk {
namespace {

const std::vector<std::string> kMenu{"View your community", "Check for new e-mails",
                                     "Other options", "Help", "About"};

template <typename Interface>
Dispatch byName(const ComPtr<Interface>& object) {
    return {object.template query<IDispatch>(IID_IDispatch), "an object",
            std::make_shared<MemberIds>()};
}

class AddinTest : public ::testing::Test {
 protected:
    AddinTest() {
        const MemoryFolder outbox{"Outbox", {}, {}};
        host.mail.stores = {{"Post",
                             {mail("a@x", {"b@x", "c@x"}), mail("b@x", {"a@x"})},
                             {outbox, {"Deleted Items", {}, {}}}}};
    }

    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const DatabaseAside aside;
    const std::unique_ptr<Driver> driver = makeDriver();
    StandInClient host;
    std::optional<AddinLibrary> library{std::in_place};
    ComPtr<IDTExtensibility2> addin = create();

    ComPtr<IDTExtensibility2> create() { return library->create<IDTExtensibility2>(kConnectClass); }
    void connect(ConnectMode mode = ConnectMode::AfterStartup) {
        EXPECT_EQ(addin->OnConnection(host.application().get(), mode, nullptr, nullptr), S_OK);
    }
    void disconnect() { EXPECT_EQ(addin->OnDisconnection(1, nullptr), S_OK); }
    bool isAboutShown() {
        driver->settle();
        return driver->isWindowShown("About Pelk");
    }
    std::string ribbon(const wchar_t* id) {
        const auto extension = addin.query<IRibbonExtensibility>(__uuidof(IRibbonExtensibility));
        Bstr xml;
        EXPECT_EQ(extension->GetCustomUI(Bstr(std::wstring_view(id)).get(), xml.put()), S_OK);
        return xml.utf8();
    }
    /// Acts on the next box, which may take a moment to appear.
    void whenBoxIsShown(std::function<void()> act, int patience = 100) {
        driver->later([this, act = std::move(act), patience] {
            if (!driver->isWindowShown("Pelk") && patience > 0)
                whenBoxIsShown(act, patience - 1);
            else
                act();
        });
    }
    /// Answers the next box, which must show that text.
    void expectBox(const std::string& text) {
        whenBoxIsShown([this, text] {
            EXPECT_TRUE(driver->isLabelShown(text)) << text;
            driver->clickButton("OK");
            ++boxesSeen;
        });
    }
    void showCommunity() {
        driver->later([this] { driver->clickButton("Start"); });
        ASSERT_TRUE(host.click("View your community"));
        driver->settle();
    }
    /// The client releases the add-in while that waits for a box.
    void leave() {
        disconnect();
        addin.reset();
        EXPECT_FALSE(library->canUnload());
        driver->clickButton("Cancel");
    }
    int boxesSeen = 0;
};

TEST_F(AddinTest, isLoadedAndConnectedAsOftenAsTheClientLikes) {
    for (int load = 0; load < 2; ++load) {
        ASSERT_TRUE(addin);
        EXPECT_FALSE(library->canUnload());
        for (const bool isByName : {false, true}) {
            if (isByName)
                byName(addin).call("OnConnection", {variantOf(host.application()), variantOf(0)});
            else
                connect();
            EXPECT_EQ(host.menu(), kMenu);
            ASSERT_TRUE(host.click("About"));
            EXPECT_TRUE(isAboutShown());
            disconnect();
            EXPECT_TRUE(host.menu().empty());
            EXPECT_FALSE(isAboutShown());
        }
        for (const HRESULT result :
             {addin->OnAddInsUpdate(nullptr), addin->OnStartupComplete(nullptr),
              addin->OnBeginShutdown(nullptr), addin->OnDisconnection(0, nullptr)})
            EXPECT_EQ(result, S_OK);
        addin.reset();
        ASSERT_TRUE(library->canUnload());
        library.reset();
        driver->settle();
        EXPECT_EQ(GetModuleHandleW(L"pelk.dll"), nullptr);
        library.emplace();
        addin = create();
    }
}

TEST_F(AddinTest, scansTheMailOfTheClientAndShowsIt) {
    connect();
    showCommunity();
    EXPECT_TRUE(driver->isWindowShown("Relations Tree"));
    EXPECT_EQ(host.mail.openItems, 0);
    disconnect();
    EXPECT_FALSE(driver->isWindowShown("Relations Tree"));

    WindowsPlatform platform;
    const auto saved = Storage(platform.services()).loadDatabase().database;
    EXPECT_EQ(saved->totalMails(), "2");
    EXPECT_NE(saved->contactIdByAddress("c@x"), 0);
}

TEST_F(AddinTest, outlivesAClientThatDisconnectsDuringACommand) {
    connect();
    driver->later([this] { leave(); });
    EXPECT_TRUE(host.click("Check for new e-mails"));
    EXPECT_TRUE(host.menu().empty());
    EXPECT_TRUE(library->canUnload());
}

TEST_F(AddinTest, outlivesAClientThatDisconnectsDuringAHandlerOfAForm) {
    connect();
    showCommunity();
    whenBoxIsShown([this] { leave(); });
    driver->clickButton("GoTo");
    for (int wait = 0; wait < 100 && !library->canUnload(); ++wait) {
        Sleep(10);
        driver->settle();
    }
    EXPECT_FALSE(driver->isWindowShown("Relations Tree"));
    EXPECT_TRUE(library->canUnload());
}

TEST_F(AddinTest, cleansUpWhenTheClientLeavesWithoutAWord) {
    connect();
    host.click("About");
    addin.reset();
    EXPECT_FALSE(isAboutShown());
    EXPECT_FALSE(host.click("About"));
    EXPECT_TRUE(library->canUnload());
}

TEST_F(AddinTest, tellsTheUserWhatFailsAndTheClientThatAllIsWell) {
    host.refusesControls = true;
    expectBox(
        "The mail client refuses Add of the controls of a command bar: No room on the tool bar.");
    connect();
    EXPECT_EQ(boxesSeen, 1);
    host.refusesControls = false;
    host.hasWindow = false;
    connect(ConnectMode::Startup);
    expectBox("The mail client shows no mail window that could hold the menu.");
    EXPECT_EQ(addin->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(boxesSeen, 2);
    connect(ConnectMode::Startup);
    host.hasWindow = true;
    EXPECT_EQ(addin->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(host.menu(), kMenu) << "the window came while the client started";
    expectBox("The mail client did not pass its application object.");
    EXPECT_EQ(addin->OnConnection(nullptr, ConnectMode::Startup, nullptr, nullptr), S_OK);
    EXPECT_EQ(boxesSeen, 3);
}

TEST_F(AddinTest, hasARibbonInPlaceOfTheMenuInClientsThatHaveOne) {
    host.version = "14.0.0.4760";
    connect(ConnectMode::Startup);
    EXPECT_EQ(addin->OnStartupComplete(nullptr), S_OK);
    EXPECT_TRUE(host.standardBar->controls.empty());
    EXPECT_EQ(ribbon(L"Microsoft.Outlook.Mail.Read"), "");

    const std::unique_ptr<XmlDocument> document = makeXmlDocument();
    const std::string xml = ribbon(L"Microsoft.Outlook.Explorer");
    EXPECT_TRUE(xml.starts_with(
        "<customUI xmlns=\"http://schemas.microsoft.com/office/2009/07/customui\">"));
    ASSERT_TRUE(document->loadXml(xml)) << xml;
    XmlElement element = document->root();
    std::string path;
    std::set<std::string> ids;
    for (; element && element.name() != "button"; element = element.firstChild()) {
        path += "/" + element.name() + element.text("idMso") + element.text("label");
        ids.insert(element.text("id"));
    }
    EXPECT_EQ(path, "/customUI/ribbon/tabs/tabTabMail/groupPelk");
    for (const std::string& caption : kMenu) {
        ASSERT_TRUE(element);
        EXPECT_EQ(element.text("label"), caption);
        EXPECT_TRUE(element.attribute("screentip") && element.attribute("supertip"));
        EXPECT_TRUE(ids.insert(element.text("id")).second) << "each id is there once";
        const Served control = makeObject();
        control->member(L"Tag", [tag = element.text("tag")] { return tag; });
        if (caption == "About")
            byName(addin).call(element.text("onAction").c_str(), {variantOf(control)});
        element = element.nextSibling();
    }
    EXPECT_FALSE(element);
    EXPECT_TRUE(isAboutShown());
    disconnect();
    EXPECT_FALSE(isAboutShown());

    for (const char* version : {"12.0.0.4518", ""}) {
        host.version = version;
        connect();
        EXPECT_EQ(host.menu(), kMenu);
        EXPECT_EQ(ribbon(L"Microsoft.Outlook.Explorer"), "");
        disconnect();
    }
}

TEST_F(AddinTest, isFoundThroughTheRegistryOfTheUserAndLeavesNothingThere) {
    const auto registered = [](const wchar_t* value) {
        constexpr const wchar_t* kKey =
            L"Software\\Microsoft\\Office\\Outlook\\Addins\\Pelk.Connect";
        wchar_t text[MAX_PATH] = L"";
        DWORD size = sizeof text;
        DWORD type = 0;
        if (RegGetValueW(HKEY_CURRENT_USER, kKey, value, RRF_RT_ANY, &type, text, &size) != 0)
            return std::string("none");
        return type == REG_DWORD ? std::to_string(text[0]) : toUtf8(text);
    };
    linkUserClasses();
    ASSERT_TRUE(runRegistrar(false));
    EXPECT_EQ(registered(L"FriendlyName"), "Pelk");
    EXPECT_EQ(registered(L"Description"), "Pelk addin for MS Outlook");
    EXPECT_EQ(registered(L"LoadBehavior"), "3");
    EXPECT_EQ(registered(L"CommandLineSafe"), "0");

    CLSID classId;
    ASSERT_EQ(CLSIDFromProgID(L"Pelk.Connect", &classId), S_OK);
    EXPECT_EQ(classId, kConnectClass);
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDTExtensibility2),
                               reinterpret_cast<void**>(addin.put())),
              S_OK);
    ASSERT_TRUE(addin);
    connect();
    EXPECT_EQ(host.menu(), kMenu);
    disconnect();
    ComPtr<IDatabaseCipher> cipher;
    EXPECT_EQ(CoCreateInstance(kDatabaseCipherClass, nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(IDatabaseCipher), reinterpret_cast<void**>(cipher.put())),
              S_OK);

    ASSERT_TRUE(runRegistrar(true));
    EXPECT_EQ(registered(L"FriendlyName"), "none");
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

    const Dispatch other = byName(library->create<IDispatch>(kDatabaseCipherClass));
    other.call("setKey", {variantOf("key"), variantOf(0)});
    other.call("SetCipherText", {variantOf(secret.utf8() + "\r\n")});
    EXPECT_EQ(other.text("GetPlainText"), plain.utf8());
    EXPECT_EQ(messageOf([&] { other.call("SetCipherText", {variantOf("PELK1:AAAA")}); }),
              "The mail client refuses SetCipherText of an object: It is cut short or damaged.");
    EXPECT_FALSE(library->create<IUnknown>(IID_IUnknown));
}

}  // namespace
}  // namespace pelk
