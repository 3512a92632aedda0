// The work whose instructions ./bench-all counts. Usage: counted_work scan MBOX, or counted_work
// link.

#include <string>

#include "bench/mail_graph.h"
#include "bench/scan_mail.h"
#include "links/link_search.h"

namespace pelk {
namespace {

void findOneLink() {
    constexpr int kContacts = 20000;
    const auto database = makeDatabase(makeMailGraph(kContacts, Weights::Mail), kContacts);
    const auto [source, target] = makePairs(kContacts, 1).front();
    LinkSearch(*database).find(source, target);
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    const std::string work = argc > 1 ? argv[1] : "";
    if (work == "scan" && argc == 3)
        pelk::scanMail(*pelk::makeEmptyDatabase(), argv[2]);
    else if (work == "link")
        pelk::findOneLink();
    else
        return 2;
}
