// Fuzzes the settings of mail programs: `prefs.js` of Thunderbird, and files with sections. The
// same input is read as either.

#include "fuzz/mail_target.h"
#include "mailstore/discovery/mail_discovery.h"

namespace pelk {
namespace {

/// A home with one program of each kind.
class Home {
 public:
    Home() {
        folder_.write(".thunderbird/profiles.ini", "[Profile0]\nIsRelative=1\nPath=p\n");
        for (const char* name : {".thunderbird/p/prefs.js", ".config/evolution/sources/a.source",
                                 ".config/akonadi_maildir_resource_0rc"})
            settings_.push_back(folder_.write(name, ""));
    }

    const std::vector<std::string>& settings() const { return settings_; }
    UserPlaces places() const {
        return userPlaces([this](const char* name) {
            return name == std::string_view("HOME") ? folder_.path() : std::string();
        });
    }

 private:
    const TemporaryFolder folder_;
    std::vector<std::string> settings_;
};

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    static const Home home;
    for (const std::string& file : home.settings())
        replaceContent(file, textOf(data, size));
    for (const FoundMail& mail : findMail(home.places()))
        require(mail.path.starts_with('/') && mail.path.find('\0') == std::string::npos,
                "a path is complete", mail.path);
    return 0;
}
