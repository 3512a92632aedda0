"""Reads the files that pelk graph wrote, each with a program that others made.

Prints a line for each reader: its name, the number of people and of links, the sum of the weights,
and the label of contact 1.
"""

import csv
import json
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

import igraph
import networkx
import vobject
from networkx.readwrite import gexf

# NetworkX knows this version since 3.5 and reads it like the ones before.
gexf.GEXF.versions.setdefault(
    "1.3",
    dict(gexf.GEXF.versions["1.2draft"], NS_GEXF="http://gexf.net/1.3", VERSION="1.3"),
)

stem = sys.argv[1]


def show(reader, people, links, weights, label):
    print(f"{reader}: {people} {links} {sum(weights):g} {label}")


def show_networkx(reader, graph, first):
    weights = [weight for _, _, weight in graph.edges(data="weight")]
    show(reader, len(graph), graph.size(), weights, graph.nodes[first]["label"])


show_networkx("NetworkX, GraphML", networkx.read_graphml(stem + ".graphml"), "n1")
show_networkx("NetworkX, GEXF", networkx.read_gexf(stem + ".gexf", version="1.3"), "1")
with open(stem + ".json", encoding="utf-8") as file:
    show_networkx("NetworkX, JSON", networkx.node_link_graph(json.load(file)), 1)

graph = igraph.Graph.Read_GraphML(stem + ".graphml")
show("igraph, GraphML", graph.vcount(), graph.ecount(), graph.es["weight"], graph.vs[0]["label"])
assert len(set(graph.es["id"])) == graph.ecount()

with open(stem + "-nodes.csv", encoding="utf-8", newline="") as file:
    nodes = list(csv.DictReader(file))
with open(stem + "-edges.csv", encoding="utf-8", newline="") as file:
    edges = list(csv.DictReader(file))
assert list(nodes[0])[:2] == ["Id", "Label"]
assert list(edges[0])[:4] == ["Source", "Target", "Type", "Weight"]
show("csv", len(nodes), len(edges), (float(edge["Weight"]) for edge in edges), nodes[0]["Label"])

# Graphviz resolves the escapes of a label when it draws it.
drawn = subprocess.run(["dot", "-Tsvg", stem + ".dot"], check=True, capture_output=True).stdout
svg = ElementTree.fromstring(drawn)
parts = {kind: [part for part in svg.iter() if part.get("class", "").split(" ")[0] == kind]
         for kind in ("node", "edge")}
weights = subprocess.run(["gvpr", 'E{print($.weight)}', stem + ".dot"], check=True,
                         capture_output=True).stdout.split()
show("Graphviz", len(parts["node"]), len(parts["edge"]), map(float, weights),
     "".join(parts["node"][0].find("{*}text").itertext()).replace("\u00A0", " "))

with open(stem + ".vcf", encoding="utf-8", newline="") as file:
    text = file.read()
assert all(len(line.encode()) <= 75 for line in text.split("\r\n"))
cards = list(vobject.readComponents(text))
show("vobject", len(cards), 0, [], cards[0].fn.value)
print(cards[0].email.value, len(cards[1].fn.value))
