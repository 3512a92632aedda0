#include "apps/cli/map_commands.h"

#include <iostream>

#include "apps/cli/commands.h"
#include "apps/cli/correspondent_commands.h"
#include "apps/cli/offscreen_fonts.h"
#include "apps/cli/terminal_text.h"
#include "db/numbers.h"
#include "map/network_files.h"
#include "map/picture_files.h"
#include "platform/desktop/qt/picture_output.h"
#include "platform/whole_files.h"

namespace pelk {
namespace {

constexpr std::size_t kMostPeople = 3000;
constexpr std::size_t kMostAround = 40;

Strength weakestShown(const std::string& from) {
    for (const Strength strength : {Strength::Strong, Strength::Medium, Strength::Weak})
        if (from == nameOf(strength))
            return strength;
    if (!from.empty())
        throw UsageError("option --from takes strong, medium or weak");
    return Strength::Weak;
}

std::optional<std::size_t> mostPeople(const std::string& people) {
    if (people.empty())
        return std::nullopt;
    if (const std::optional<int> number = wholeNumber(people, kMaxContactId))
        return static_cast<std::size_t>(*number);
    throw UsageError("option --people takes a number from 1 to " + std::to_string(kMaxContactId));
}

GraphFilter filterOf(CommandRun& run) {
    const Arguments& arguments = run.arguments();
    GraphFilter filter{weakestShown(arguments.from), mostPeople(arguments.people), {}};
    filter.without = leftOutContacts(run);
    return filter;
}

PictureSize sizeOf(const std::string& text) {
    if (text.empty())
        return kPictureSize;
    if (const std::optional<PictureSize> size = pictureSizeIn(text))
        return *size;
    throw UsageError(std::string("option --size takes ") + kPictureSizes);
}

const std::string& outputOf(const Arguments& arguments) {
    if (arguments.output.empty())
        throw UsageError(std::string("pelk ") + arguments.command->name + " needs -o FILE");
    return arguments.output;
}

PictureFormat formatOf(const std::string& path, const Language& language) {
    if (const std::optional<PictureFormat> format = pictureFormat(path, language))
        return *format;
    throw UsageError("pelk picture writes files that end in .svg, .png or .pdf");
}

Arrangement arrange(CommandRun& run, GraphFilter filter) {
    const std::vector<std::string>& operands = run.arguments().operands;
    filter.people = filter.people.value_or(operands.empty() ? kMostPeople : kMostAround);
    if (operands.empty())
        return arrangeCommunity(makeGraph(run.database(), filter));
    return arrangeCircle(makeCircle(run.database(), run.findContact(operands[0]), filter));
}

}  // namespace

void pictureCommand(CommandRun& run) {
    const std::string& path = outputOf(run.arguments());
    const PictureFormat format = formatOf(path, run.language());
    const PictureSize size = sizeOf(run.arguments().size);
    const Arrangement arrangement = arrange(run, filterOf(run));
    std::optional<OffscreenFonts> fonts;
    if (format != PictureFormat::Svg)
        fonts.emplace();
    QtPictureOutput pictures;
    const FileContent file{path, pictureFile(arrangement, size, format, pictures)};
    writeWholeFiles(run.platform().files, {file});
}

void graphCommand(CommandRun& run) {
    const std::string& path = outputOf(run.arguments());
    if (!isNetworkFile(path, run.language()))
        throw UsageError(std::string("pelk graph writes files that end in ") + kNetworkEndings);
    const Graph graph = makeGraph(run.database(), filterOf(run));
    writeWholeFiles(run.platform().files, networkFiles(graph, path, run.language()));
    Line(std::cout) << "people: " << graph.people.size();
    Line(std::cout) << "relations: " << graph.links.size();
}

}  // namespace pelk
