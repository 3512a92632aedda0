// How good the groups and the layout of a picture are, and how fast, beside igraph and Graphviz.

#include <cstdio>
#include <optional>
#include <vector>

#include "bench/mail_graph.h"
#include "bench/measure.h"
#include "bench/network.h"
#include "map/layout.h"
#include "map/scene.h"
#include "map/stress_layout.h"

namespace pelk {
namespace {

constexpr int kRounds = 5;

/// How good a result is, and how many milliseconds it took.
struct Score {
    double measure;
    double time;
};

void print(const char* network, std::size_t people, const char* what, Score own, Score others) {
    std::printf("%-9s %6zu  %-19s %7.4f %7.4f  %9.2f %9.2f  %6.1f\n", network, people, what,
                own.measure, others.measure, own.time, others.time, others.time / own.time);
    std::fflush(stdout);
}

void compareGroups(const char* network, const Graph& graph) {
    Groups own;
    std::optional<Groups> others;
    const std::vector<double> times = medians(
        kRounds, {{[&] { own = findGroups(graph); }}, {[&] { others = igraphGroups(graph); }}});
    if (others)
        print(network, graph.people.size(), "modularity, igraph",
              {modularityOf(graph, own), times[0]}, {modularityOf(graph, *others), times[1]});
}

void compareLayouts(const char* network, const Graph& graph) {
    const Rows rows(graph);
    const LinkLengths lengths(graph.links.size(), 1);
    Points own;
    std::optional<Points> others;
    const std::vector<double> times =
        medians(kRounds, {{[&] { own = layOutConnected(Rows(graph), lengths); }},
                          {[&] { others = sfdpLayout(graph); }}});
    if (others)
        print(network, graph.people.size(), "stress, sfdp",
              {stressOf(own, rows, lengths), times[0]},
              {stressOf(*others, rows, lengths), times[1]});
}

/// Prints the time of everything between a database and a scene with labels.
void timePicture(std::size_t people, const Database& database) {
    std::size_t texts = 0;
    const std::vector<double> times =
        medians(kRounds, {{[&] {
                    const Arrangement all = arrangeCommunity(makeGraph(database, {}));
                    const SceneStyle style;
                    texts = makeScene(all, viewOfAll(all, 1200, 900, style), style).texts.size();
                }}});
    std::printf("%-9s %6zu  a picture, %zu labels %27.2f\n", "random", people, texts, times[0]);
}

Graph asNetwork(const MailGraph& mail) {
    Graph graph;
    graph.people.resize(static_cast<std::size_t>(mail.contacts));
    for (const Relation& relation : mail.relations)
        graph.links.push_back({static_cast<std::uint32_t>(relation.part1 - 1),
                               static_cast<std::uint32_t>(relation.part2 - 1), relation.weight});
    countMails(graph);
    return graph;
}

void compare(const char* network, const Graph& graph) {
    compareGroups(network, graph);
    compareLayouts(network, graph);
}

}  // namespace
}  // namespace pelk

int main() {
    std::printf(
        "network  people  measure, beside         Pelk   other    Pelk, ms other, ms  ratio\n");
    for (const int people : {100, 1000, 3000}) {
        const pelk::MailGraph mail = pelk::makeMailGraph(people, pelk::Weights::Mail);
        const auto count = static_cast<std::size_t>(people);
        pelk::compare("grouped", pelk::makeGroupedNetwork(count));
        pelk::compare("random", pelk::asNetwork(mail));
        pelk::timePicture(count, *pelk::makeDatabase(mail, people));
    }
}
