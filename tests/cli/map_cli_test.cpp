// Pictures, and the network for other programs, which read it back.

#include <algorithm>

#include "tests/cli/cli_fixture.h"

namespace pelk {
namespace {

class MapCliTest : public CliTest {
 protected:
    void SetUp() override {
        std::string longName;
        for (int at = 0; at < 100; ++at)
            longName += at == 50 ? "e" : "\u00E9";
        ASSERT_EQ(run("load -",
                      "<pelkDB date='2020-01-01T00:00:00' totalMails='113' totalContacts='4' "
                      "maxInd='50' minInd='5'><contacts>"
                      "<contact id='1' name='=1+\"1\" &lt;b&gt;&amp;amp; \\N,;&#10;"
                      "\u202E&apos;x'><emails><email value='a,b;c@x.example'/></emails>"
                      "</contact><contact id='2' name='" +
                          longName +
                          "'/><contact id='3'><emails><email value='cy@c.example'/>"
                          "</emails></contact><contact id='4' name='Alone'/></contacts>"
                          "<relations><relation part1='1' part2='2' weight='100'/>"
                          "<relation part1='2' part2='3' weight='10'/>"
                          "<relation part1='1' part2='3' weight='3'/></relations>"
                          "</pelkDB>")
                      .errors,
                  "");
    }
};

TEST_F(MapCliTest, otherProgramsReadTheNetwork) {
    for (const char* ending : {"graphml", "gexf", "csv", "dot", "json", "vcf"})
        EXPECT_EQ(run("graph -o net." + std::string(ending)).output, "people: 4\nrelations: 3\n");
    const std::string label = "=1+\"1\" <b>&amp; \\N,; \uFFFD'x\n";
    // The Python of the system, for which its packages are installed.
    const Outcome outcome = runAnything("/usr/bin/python3 " PELK_READERS " net");
    EXPECT_EQ(outcome.output, "NetworkX, GraphML: 4 3 113 " + label + "NetworkX, GEXF: 4 3 113 " +
                                  label + "NetworkX, JSON: 4 3 113 " + label +
                                  "igraph, GraphML: 4 3 113 " + label + "csv: 4 3 113 '" + label +
                                  "Graphviz: 4 3 113 " + label + "vobject: 4 0 0 " + label +
                                  "a,b;c@x.example 100\n")
        << outcome.errors;
}

TEST_F(MapCliTest, filtersTheNetwork) {
    EXPECT_EQ(run("graph -o n.dot --from medium").output, "people: 3\nrelations: 2\n");
    EXPECT_EQ(run("graph -o n.dot --from strong").output, "people: 2\nrelations: 1\n");
    EXPECT_EQ(run("graph -o n.dot --people 2").output, "people: 2\nrelations: 1\n");
}

TEST_F(MapCliTest, drawsPicturesWithoutADisplay) {
    EXPECT_EQ(run("picture -o all.svg --size 800x600").status, 0);
    const std::string svg = contentOf(folder.path() + "/all.svg");
    EXPECT_NE(svg.find("width=\"800\" height=\"600\""), std::string::npos);
    EXPECT_NE(svg.find(">cy@c.example</text>"), std::string::npos);
    EXPECT_EQ(svg.find("Alone"), std::string::npos);
    EXPECT_EQ(run("picture cy@c.example -o cy.PNG").errors, "");
    EXPECT_TRUE(contentOf(folder.path() + "/cy.PNG").starts_with("\x89PNG"));
    EXPECT_EQ(run("picture 3 -o cy.pdf").status, 0);
    EXPECT_TRUE(contentOf(folder.path() + "/cy.pdf").starts_with("%PDF"));
}

TEST_F(MapCliTest, refusesWhatItCannotWrite) {
    const std::string help = "; see pelk --help";
    expectRefused("graph", 2, "pelk graph needs -o FILE" + help);
    expectRefused("graph -o x.txt", 2,
                  "pelk graph writes files that end in .graphml, .gexf, .csv, .dot, .gv, .json or "
                  ".vcf" +
                      help);
    expectRefused("picture -o .svg/x", 2,
                  "pelk picture writes files that end in .svg, .png or .pdf" + help);
    expectRefused("graph -o x.dot --from any", 2,
                  "option --from takes strong, medium or weak" + help);
    expectRefused("graph -o x.dot --people 0", 2,
                  "option --people takes a number from 1 to 32767" + help);
    for (const char* size : {"800", "800x", "99x800", "800x600x", "-800x600", "30000x800"})
        expectRefused("picture -o x.svg --size " + std::string(size), 2,
                      "option --size takes a width and a height from 100 to 20000, such as "
                      "1200x900" +
                          help);
    EXPECT_EQ(run("graph -o missing/x.csv").status, 1);
    EXPECT_EQ(run("graph -o x-nodes.csv/").status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/x.dot"));
}

}  // namespace
}  // namespace pelk
