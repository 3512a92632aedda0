// Keeps the help up to date: every form has a page, every page is in the contents, no link is
// broken, and the program still contains every text that a page quotes.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "platform/shortcuts.h"

namespace pelk {
namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Pages by file name, white space made single blanks.
std::map<std::string, std::string> pages() {
    std::map<std::string, std::string> texts;
    for (const fs::directory_entry& file : fs::directory_iterator(PELK_HELP_DIR))
        if (file.path().extension() == ".html")
            texts[file.path().filename().string()] =
                std::regex_replace(readFile(file.path()), std::regex("\\s+"), " ");
    return texts;
}

/// Returns the first group of each match of the pattern.
std::vector<std::string> allMatches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        found.push_back((*match)[1]);
    return found;
}

/// All sources of the program in one text, with literals that span lines joined, and without the
/// marks of access keys.
std::string sources() {
    std::string text;
    for (const char* folder : {"addin", "apps", "db", "links", "mailstore", "maintenance", "map",
                               "platform", "scan", "views"})
        for (const fs::directory_entry& file :
             fs::recursive_directory_iterator(fs::path(PELK_SOURCE_DIR) / folder))
            if (file.path().extension() == ".h" || file.path().extension() == ".cpp")
                text += readFile(file.path());
    std::erase(text, '&');
    return std::regex_replace(text, std::regex("\"\n\\s*\""), "");
}

std::set<std::string> formClasses() {
    std::set<std::string> classes;
    for (const char* folder : {"addin", "links", "maintenance", "map", "scan", "views"})
        for (const fs::directory_entry& file :
             fs::directory_iterator(fs::path(PELK_SOURCE_DIR) / folder)) {
            const std::string text = readFile(file.path());
            const std::size_t member = text.find("<Window> window;");
            if (file.path().extension() == ".h" && member != std::string::npos)
                classes.insert(allMatches(text.substr(0, member), "\nclass (\\w+)").back());
        }
    return classes;
}

TEST(Help, hasAPageForEveryForm) {
    std::set<std::string> described;
    for (const auto& [name, text] : pages())
        for (const std::string& form : allMatches(text, "name=\"form\" content=\"(\\w+)\""))
            described.insert(form);
    EXPECT_EQ(described, formClasses());
    EXPECT_GE(described.size(), 12U) << "the forms were not found";
}

TEST(Help, contentsListEveryPageUnderItsTitle) {
    std::multiset<std::string> listed;
    std::multiset<std::string> expected;
    for (const auto& [name, text] : pages()) {
        if (name == "index.html")
            for (const std::string& entry : allMatches(text, "<li><a href=\"(.*?)</a>"))
                listed.insert(entry);
        else if (name != "keywords.html")
            expected.insert(name + "\">" + allMatches(text, "<title>(.*?)</title>").at(0));
    }
    EXPECT_EQ(listed, expected);
}

TEST(Help, showsEachPictureThatItHas) {
    std::set<std::string> shown;
    for (const auto& [name, text] : pages())
        for (const std::string& picture : allMatches(text, "src=\"(.*?)\" alt=\"[^\"]"))
            shown.insert(picture);
    for (const fs::directory_entry& file :
         fs::directory_iterator(fs::path(PELK_HELP_DIR) / "pictures")) {
        EXPECT_TRUE(shown.contains("pictures/" + file.path().filename().string())) << file.path();
        EXPECT_TRUE(readFile(file.path()).starts_with("\x89PNG")) << file.path();
        EXPECT_GT(file.file_size(), 1000U) << file.path();
    }
}

TEST(Help, listsTheKeysOfTheProgramAndNoOthers) {
    std::set<std::string> expected = {"F10"};
    for (const ShortcutKey& key : kShortcutKeys)
        expected.insert(std::string(key.keys));
    // Of the mail window, which takes Qt's standard keys.
    const std::map<std::string, std::string> standard = {
        {"Open", "Ctrl+O"}, {"Quit", "Ctrl+Q"},     {"Copy", "Ctrl+C"}, {"Find", "Ctrl+F"},
        {"Refresh", "F5"},  {"HelpContents", "F1"}, {"Undo", "Ctrl+Z"}, {"Redo", "Ctrl+Y"}};
    for (const std::string& key : allMatches(sources(), "QKeySequence::(\\w+),"))
        expected.insert(standard.contains(key) ? standard.at(key) : key);
    std::set<std::string> listed;
    for (const std::string& cell : allMatches(pages().at("keyboard.html"), "<tr><td>(.*?)</td>"))
        for (const std::string& key : allMatches(cell, "((?:Ctrl|Alt)\\+[A-Za-z+]+|F\\d+|Esc)"))
            listed.insert(key);
    EXPECT_EQ(listed, expected);
}

TEST(Help, pagesAreTrueSayEnoughAndCanBeFound) {
    const std::map<std::string, std::string> all = pages();
    const std::string program = sources();
    for (const auto& [name, text] : all) {
        SCOPED_TRACE(name);
        for (const std::string& target : allMatches(text, "(?:href|src)=\"(.*?)\"")) {
            const std::string file = target.substr(0, target.find('#'));
            EXPECT_TRUE(fs::is_regular_file(fs::path(PELK_HELP_DIR) / file)) << target;
            const std::string anchor = target.substr(std::min(file.size() + 1, target.size()));
            EXPECT_TRUE(anchor.empty() ||
                        all.at(file).find("name=\"" + anchor + "\"") != std::string::npos)
                << target;
        }
        for (const std::string& caption : allMatches(text, "<b class=\"ui\">(.*?)</b>"))
            EXPECT_NE(program.find('"' + caption + '"'), std::string::npos) << caption;
        for (const std::string& message : allMatches(text, "<b class=\"msg\">(.*?)</b>"))
            EXPECT_NE(program.find(message), std::string::npos) << message;
        EXPECT_GT(std::regex_replace(text, std::regex("<[^>]*>"), "").size(), 300U);
        // The viewer reads the contents and the index of the compiled help as ASCII.
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c > 0; }));
        EXPECT_TRUE(name == "index.html" || name == "keywords.html" ||
                    !allMatches(text, "name=\"keywords\" content=\"(.+?)\"").empty());
    }
}

}  // namespace
}  // namespace pelk
