#include "bench/scan_mail.h"

#include <cstdio>
#include <cstdlib>

#include "db/default_documents.h"
#include "mailstore/mail_store.h"
#include "platform/desktop/locale_language.h"
#include "platform/desktop/pugi_document.h"

namespace pelk {
std::unique_ptr<Database> makeEmptyDatabase() {
    std::unique_ptr<XmlDocument> document = createPugiDocument();
    document->loadXml(std::string(kFirstStartDocument));
    return std::make_unique<Database>(std::move(document));
}

ScanOutcome scanMail(Database& database, const std::string& path) {
    return scanMail(database, *openMailSession({path}, {}));
}

ScanOutcome scanMail(Database& database, MailSession& session) {
    static const LocaleLanguage language("en_US");
    NoProgress progress;
    const ScanOutcome outcome = Scanner(database, language, progress).scan(session);
    if (outcome.faults > 0 || outcome.mails == 0) {
        std::fprintf(stderr, "%s\n", outcome.firstFault.c_str());
        std::exit(1);
    }
    return outcome;
}

}  // namespace pelk
