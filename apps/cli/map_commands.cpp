#include "apps/cli/map_commands.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>

#include "apps/cli/commands.h"
#include "apps/cli/correspondent_commands.h"
#include "apps/cli/picture_file.h"
#include "apps/cli/terminal_text.h"
#include "map/network_files.h"
#include "platform/whole_files.h"

namespace pelk {
namespace {

constexpr std::size_t kMostPeople = 3000;
constexpr std::size_t kMostAround = 40;
/// Larger pictures would not fit into the memory.
constexpr int kLargestSide = 20000;
constexpr int kSmallestSide = 100;
/// A picture of at least that width has room for the list of groups.
constexpr int kLegendFrom = 800;
constexpr PictureSize kDefaultSize{1200, 900};

/// Returns the number if the whole text is one from 1 to `most`.
std::optional<int> wholeNumber(std::string_view text, int most) {
    int number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || end != text.data() + text.size() || number < 1 || number > most)
        return std::nullopt;
    return number;
}

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
        return kDefaultSize;
    const std::size_t cross = text.find('x');
    if (cross != std::string::npos) {
        const std::optional<int> width = wholeNumber(text.substr(0, cross), kLargestSide);
        const std::optional<int> height = wholeNumber(text.substr(cross + 1), kLargestSide);
        if (width >= kSmallestSide && height >= kSmallestSide)
            return {*width, *height};
    }
    throw UsageError("option --size takes a width and a height from " +
                     std::to_string(kSmallestSide) + " to " + std::to_string(kLargestSide) +
                     ", such as 1200x900");
}

const std::string& outputOf(const Arguments& arguments) {
    if (arguments.output.empty())
        throw UsageError(std::string("pelk ") + arguments.command->name + " needs -o FILE");
    return arguments.output;
}

PictureFormat pictureFormat(const std::string& path, const Language& language) {
    const std::string ending = endingOf(path, language);
    if (ending == ".svg")
        return PictureFormat::Svg;
    if (ending == ".png")
        return PictureFormat::Png;
    if (ending == ".pdf")
        return PictureFormat::Pdf;
    throw UsageError("pelk picture writes files that end in .svg, .png or .pdf");
}

Arrangement arrange(CommandRun& run, GraphFilter filter) {
    const std::vector<std::string>& operands = run.arguments().operands;
    filter.people = filter.people.value_or(operands.empty() ? kMostPeople : kMostAround);
    if (operands.empty())
        return arrangeCommunity(makeGraph(run.database(), filter));
    return arrangeCircle(makeCircle(run.database(), run.findContact(operands[0]), filter));
}

std::string titleOf(const Arrangement& arrangement) {
    const std::vector<GraphPerson>& people = arrangement.graph.people;
    if (!arrangement.isCircle)
        return std::to_string(people.size()) + " people, grouped by their e-mails";
    return labelOf(people[0].contact) + " and the " + std::to_string(people.size() - 1) +
           " people nearest by e-mail";
}

}  // namespace

void pictureCommand(CommandRun& run) {
    const std::string& path = outputOf(run.arguments());
    const PictureFormat format = pictureFormat(path, run.language());
    const PictureSize size = sizeOf(run.arguments().size);
    const Arrangement arrangement = arrange(run, filterOf(run));
    SceneStyle style;
    style.title = titleOf(arrangement);
    // A larger picture has larger texts, and also more of them.
    style.fontSize *= std::sqrt(std::max(1.0, std::min(size.width / 1200.0, size.height / 900.0)));
    style.hasLegend = size.width >= kLegendFrom;
    const FileContent file{path, pictureFile(arrangement, style, size, format)};
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
