// How good the groups and the layout of a picture are, and how fast, beside igraph and Graphviz.

#include <cstdio>
#include <functional>
#include <string>

#include "bench/mail_graph.h"
#include "bench/measure.h"
#include "bench/network.h"
#include "map/layout.h"
#include "map/stress_layout.h"

namespace pelk {
namespace {

constexpr int kRounds = 3;

double medianOf(const std::function<void()>& work) {
    return medians(kRounds, {{work}}).front();
}

void print(const char* network, std::size_t people, const char* what, double own, double others,
           double ownTime, double othersTime) {
    std::printf("%-8s %6zu  %-21s %7.4f %7.4f  %9.2f %9.2f  %5.1f\n", network, people, what, own,
                others, ownTime, othersTime, othersTime / ownTime);
    std::fflush(stdout);
}

void compareGroups(const char* network, const Graph& graph) {
    Groups own;
    std::optional<Groups> others;
    const double ownTime = medianOf([&] { own = findGroups(graph); });
    const double othersTime = medianOf([&] { others = igraphGroups(graph); });
    if (others)
        print(network, graph.people.size(), "modularity, igraph", modularityOf(graph, own),
              modularityOf(graph, *others), ownTime, othersTime);
}

void compareLayouts(const char* network, const Graph& graph) {
    const Rows rows(graph);
    const LinkLengths lengths(graph.links.size(), 1);
    Points own;
    std::optional<Points> others;
    const double ownTime = medianOf([&] { own = layOutConnected(Rows(graph), lengths); });
    const double othersTime = medianOf([&] { others = sfdpLayout(graph); });
    if (others)
        print(network, graph.people.size(), "stress, sfdp", stressOf(own, rows, lengths),
              stressOf(*others, rows, lengths), ownTime, othersTime);
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
        pelk::compare("grouped", pelk::makeGroupedNetwork(static_cast<std::size_t>(people)));
        pelk::compare("random", pelk::asNetwork(pelk::makeMailGraph(people, pelk::Weights::Mail)));
    }
}
