// Measures whether a message takes longer to scan when the database has many contacts. Usage:
// scan_growth FOLDER, with the mail that ./bench-all writes there.

#include <cstdio>
#include <string>

#include "bench/large_database.h"
#include "bench/measure.h"
#include "bench/scan_mail.h"
#include "platform/desktop/pugi_document.h"

namespace pelk {
namespace {

constexpr double kMessages = 20000;

/// Returns a database that already has the people of the mail, so that no run adds contacts.
std::unique_ptr<Database> makeDatabaseFor(const std::string& mbox, std::size_t contacts,
                                          std::size_t relations) {
    std::unique_ptr<XmlDocument> document = createPugiDocument();
    document->loadXml(makeLargeDocument(contacts, relations));
    auto database = std::make_unique<Database>(std::move(document));
    scanMail(*database, mbox);
    return database;
}

void compare(const std::string& folder) {
    const std::string few = folder + "/of-1000.mbox";
    const std::string many = folder + "/of-30000.mbox";
    const auto small = makeDatabaseFor(few, 1000, 2000);
    const auto large = makeDatabaseFor(many, 30000, kManyRelations);
    const auto times =
        medians(7, {{[&] { scanMail(*large, many); }}, {[&] { scanMail(*small, few); }}});
    print({"A message, 30,000 contacts and 200,000 relations known", "warm",
           1000 * times[0] / kMessages, "1,000 contacts known", 1000 * times[1] / kMessages, "µs",
           1.3});
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "scan_growth FOLDER\n");
        return 2;
    }
    pelk::compare(argv[1]);
}
