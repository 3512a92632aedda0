#include "db/folder_marks_file.h"

#include <string>

#include "db/damaged_data.h"
#include "db/numbers.h"
#include "db/place_text.h"

namespace pelk {
namespace {

constexpr const char* kName = "pelk-imap.db";

std::uint32_t readMark(const XmlElement& element, const char* attribute) {
    return static_cast<std::uint32_t>(readInteger(element.text(attribute)));
}

}  // namespace

LoadedFolderMarks FolderMarksFile::load(const Database& database) {
    try {
        if (std::optional<std::string> content = storage_.readBeside(kName))
            read(std::move(*content), database);
    } catch (const DamagedData& error) {
        isThere_ = true;
        return {{},
                std::string(error.what()) + " It will be replaced; this scan reads all e-mails."};
    }
    return {loaded_, std::nullopt};
}

void FolderMarksFile::read(std::string content, const Database& database) {
    isThere_ = true;
    const std::unique_ptr<XmlDocument> document = platform_.createXmlDocument();
    if (!document->loadXml(std::move(content)) || document->root().name() != "pelkImap")
        throw DamagedData("The file " + std::string(kName) +
                          " does not hold the marks of folders on mail servers.");
    const XmlElement root = document->root();
    if (root.text("date") != database.date() || root.text("mails") != database.totalMails())
        return;
    for (XmlElement folder = root.firstChild(); folder; folder = folder.nextSibling())
        loaded_.push_back({decodePlace(folder.text("place")), readMark(folder, "numbering"),
                           readMark(folder, "last")});
}

void FolderMarksFile::hold(const std::vector<FolderMark>& marks, const Database& database) {
    const std::vector<FolderMark>& latest = marks.empty() ? loaded_ : marks;
    if (latest.empty() && !isThere_)
        return;
    const std::unique_ptr<XmlDocument> document = platform_.createXmlDocument();
    if (!document->loadXml("<pelkImap/>"))
        throw Error("There is no document for the marks of folders on mail servers.");
    const XmlElement root = document->root();
    root.setAttribute("date", database.date());
    root.setAttribute("mails", database.totalMails());
    for (const FolderMark& mark : latest) {
        const XmlElement folder = root.appendElement("folder");
        folder.setAttribute("place", encodePlace(mark.place));
        folder.setAttribute("numbering", std::to_string(mark.numbering));
        folder.setAttribute("last", std::to_string(mark.last));
    }
    storage_.holdBeside(kName, document->xml());
}

}  // namespace pelk
