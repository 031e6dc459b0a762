#include "help/manual.h"
#include "help/source_texts.h"
#include "help/topic_page.h"
#include "platform/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {
namespace {

using test::SourceText;

/// Files whose texts are no messages, and why.
const std::map<std::string, std::string> otherFiles = {
    {"export/settings_record.cpp", "the lines of the record that an export writes"},
    {"help/product.cpp", "the line with the version"},
    {"help/product.h", "what the About window says of the product"},
};

/// Texts outside those files that nobody looks up, and why. They are compared whole.
const std::map<std::string, std::string> exceptions = {
    {"D-Bus Interface", "a keyword of the toolkit"},
    {"a four-character code is printable ASCII", "stops the compiler"},
    {"; last read:", "looked for in the words of a library"},
    {"The data", "the subject of data for which its reader names none"},
    {"Not specified", "in the summary of an import, which the window does not show"},
    {"Your first pass. Your rules.", "the line under the title of the help window"},
    {"Search the manual", "stands in the field above the topics"},
    {"Search help topics and their contents", "the tip of that field"},
    {"topics · Available offline", "the count of the topics"},
    {"Try a word such as audio, frequency, timecode or export.", "advice already"},
    {"Corvane Import", "the name of files that another program writes"},
    {"Final Cut project", "the name of a transfer that comes without one"},
    {"Corvane accepts Final Cut assets only.", "an answer to the program that shares"},
    {"The requested Final Cut transfer was not found.", "an answer to the program that shares"},
    {"Unsupported Final Cut asset property.", "an answer to the program that shares"},
    {"No files were named.", "an answer to the program that shares"},
    {"Only files can be opened.", "an answer to the program that shares"},
    {"The Apple Event data is nested too deeply.", "about the bytes of such an answer or question"},
    {"The Apple Event data is too large.", "about the bytes of such an answer or question"},
};

/// Calls whose texts stand beside what they explain, or are for who cannot see the window.
bool isExplanation(std::string_view calls)
{
    constexpr std::array<std::string_view, 5> explaining = {
        "addHelp(tr(", "helpLabel(tr(", "setToolTip(tr(", "setAccessibleName(tr(", "setAccessibleDescription(tr("};
    return std::ranges::any_of(explaining, [calls](std::string_view call) { return calls.ends_with(call); });
}

/// Names of files, keys, elements and the like are one word; attributes of markup are not for people.
bool isForPeople(std::string_view piece)
{
    if (piece.find("=\"") != std::string_view::npos)
        return false;
    int words = 0;
    int letters = 0;
    for (const char c : std::string(piece) + " ") {
        if (c == ' ')
            words += std::exchange(letters, 0) >= 2 ? 1 : 0;
        else
            letters += (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ? 1 : 0;
    }
    return words >= 2;
}

/// A piece of a text that the sources have for the user.
struct Piece {
    std::string file; ///< below src
    std::string text;
};

std::vector<Piece> piecesInSources()
{
    const std::filesystem::path sources = CORVANE_SOURCES;
    std::vector<Piece> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sources)) {
        const std::string extension = entry.path().extension().string();
        const std::string file = entry.path().lexically_relative(sources).generic_string();
        if ((extension != ".cpp" && extension != ".h") || otherFiles.contains(file))
            continue;
        for (const SourceText& text : test::textsOf(readFile(entry.path().string()))) {
            if (isExplanation(text.calls))
                continue;
            for (std::string& piece : test::piecesOf(text)) {
                if (isForPeople(piece))
                    found.push_back({file, std::move(piece)});
            }
        }
    }
    return found;
}

CorvaneManual shippedManual()
{
    return loadManual(ResourceFolders({CORVANE_RESOURCES}));
}

/// All lines of the topics whose ids begin like that.
std::vector<std::string> linesOf(const CorvaneManual& manual, std::string_view idStart)
{
    std::vector<std::string> lines;
    for (const CorvaneManual::Section& section : manual.sections) {
        if (!section.id.starts_with(idStart))
            continue;
        for (const CorvaneManual::Block& block : section.blocks) {
            for (const PageLine& line : pageLines(block))
                lines.push_back(line.text);
        }
    }
    return lines;
}

bool anyHolds(const std::vector<std::string>& lines, std::string_view text)
{
    return std::ranges::any_of(lines, [text](const std::string& line) { return line.find(text) != std::string::npos; });
}

TEST(ManualMessages, TextsAreFoundInSources)
{
    const std::string_view source = R"src(#include "a b.h"
        // "in a comment" 'x
        /* "in another" */ const char quote = '"';
        f("Joined " /* here */
          "text", 10'000, "it \"is\" so\n");
        g(h(tr("&Save %1 of %2")), X("100 % of & all"), (" in brackets"));
        const char* raw = R"x(raw "text")x";)src";
    const std::vector<SourceText> texts = test::textsOf(source);
    const std::vector<SourceText> expected = {{"Joined text", "f("},         {R"(it \"is\" so\n)", ""},
                                              {"&Save %1 of %2", "g(h(tr("}, {"100 % of & all", "X("},
                                              {" in brackets", ""},          {"raw \"text\"", ""}};
    EXPECT_EQ(texts, expected);
    const std::vector<std::vector<std::string>> pieces = {{"Joined text"},    {"it \"is\" so"}, {"Save", "of"},
                                                          {"100 % of & all"}, {"in brackets"},  {"raw \"text\""}};
    for (std::size_t n = 0; n < expected.size(); ++n)
        EXPECT_EQ(test::piecesOf(expected[n]), pieces[n]) << expected[n].text;
}

/// A message without an entry, and a label that the manual writes in another way than the window.
TEST(ManualMessages, EachStandsInTheManual)
{
    const CorvaneManual manual = shippedManual();
    const std::vector<std::string> lines = linesOf(manual, "");
    const std::vector<std::string> troubleshooting = linesOf(manual, "messages-");
    std::set<std::string> unused;
    for (const auto& [text, reason] : exceptions)
        unused.insert(text);
    int sentences = 0;
    for (const Piece& piece : piecesInSources()) {
        if (exceptions.contains(piece.text)) {
            unused.erase(piece.text);
            continue;
        }
        const bool sentence = piece.text.ends_with('.');
        sentences += sentence ? 1 : 0;
        EXPECT_TRUE(anyHolds(sentence ? troubleshooting : lines, piece.text))
            << piece.file << " says \"" << piece.text << "\", and " << (sentence ? "no message entry" : "no line")
            << " of the manual has it";
    }
    EXPECT_TRUE(unused.empty()) << "no longer in the sources: " << *unused.begin();
    EXPECT_GT(sentences, 80) << "the sources have lost their messages, or they are no longer found";
}

/// An entry that says what is wrong and not what to do.
TEST(ManualMessages, EachEntryHasARemedy)
{
    for (const CorvaneManual::Section& section : shippedManual().sections) {
        if (!section.id.starts_with("messages-"))
            continue;
        for (std::size_t n = 0; n < section.blocks.size(); ++n) {
            if (blockStyle(section.blocks[n]) != BlockStyle::heading)
                continue;
            ASSERT_LT(n + 1, section.blocks.size()) << section.id;
            EXPECT_EQ(blockStyle(section.blocks[n + 1]), BlockStyle::paragraph) << pageLines(section.blocks[n])[0].text;
        }
    }
}

} // namespace
} // namespace corvane
