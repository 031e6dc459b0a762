#include "export/export_files.h"
#include "export/hand_off.h"
#include "support/failing_files.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

TEST(ExportNames, EndAtTenThousand)
{
    const auto upTo9999 = [](const std::string& name) { return !name.starts_with("I Corvane 10000."); };
    EXPECT_EQ(exportNames("I", 255, upTo9999).xml, "I Corvane 10000.fcpxml");
    EXPECT_REFUSED(
        exportNames("I", 255, [](const std::string&) { return true; }),
        "Choose another folder or clear space for a new export name.");
}

TEST(ExportNames, LoseWholeCharactersWhereTheFileSystemHasNoRoom)
{
    std::string days = "x";
    for (int n = 0; n < 100; ++n)
        days += "日";
    const ScratchFolder folder;
    for (int n = 0; n < 2; ++n)
        (void)writeExportFiles(folder.path(), "xml", "text", days);
    const std::string kept = days.substr(0, 1 + std::size_t{75} * 3) + " Corvane";
    EXPECT_EQ(
        folder.names(),
        (Names{kept + " 2.fcpxml", kept + " 2.settings.txt", kept + ".fcpxml", kept + ".settings.txt"}));
}

TEST(ExportFiles, StandBesideEarlierOnes)
{
    const ScratchFolder folder;
    const ExportFiles first = writeExportFiles(folder.path(), "<a/>", "one\n", "Interview");
    EXPECT_EQ(first.xmlURL, folder.file("Interview Corvane.fcpxml"));
    EXPECT_EQ(first.settingsURL, folder.file("Interview Corvane.settings.txt"));
    std::filesystem::remove(first.xmlURL);
    (void)writeExportFiles(folder.path(), "<b/>", "two\n", "Interview");
    EXPECT_EQ(
        folder.names(),
        (Names{"Interview Corvane 2.fcpxml", "Interview Corvane 2.settings.txt", "Interview Corvane.settings.txt"}));
    EXPECT_EQ(readFile(folder.file("Interview Corvane 2.settings.txt")), "two\n");
    EXPECT_REFUSED(
        writeExportFiles(folder.file("gone"), "", "", "I"),
        "Cannot write I Corvane.fcpxml: No such file or directory.");
}

TEST(ExportFiles, KeepTheDocumentWhenTheRecordFails)
{
    const ScratchFolder whole;
    FailingFiles counting;
    (void)writeExportFiles(whole.path(), "<a/>", "record", "I", counting);
    for (int failing = 0; failing < counting.calls; ++failing) {
        const ScratchFolder folder;
        FailingFiles calls(failing, EDQUOT);
        const bool inDocument = failing < counting.calls / 2;
        EXPECT_REFUSED(
            writeExportFiles(folder.path(), "<a/>", "record", "I", calls),
            inDocument ? "Cannot write I Corvane.fcpxml: Disk quota exceeded."
                       : "The XML was saved as I Corvane.fcpxml, but the settings record could not be saved: Cannot "
                         "write I Corvane.settings.txt: Disk quota exceeded.")
            << failing << " of " << counting.calls;
        EXPECT_EQ(folder.names(), inDocument ? Names{} : Names{"I Corvane.fcpxml"});
    }
}

TEST(HandOff, SaysWhichErrorAMissingFinalCutIs)
{
    NoBundledApplications services;
    std::optional<ServiceError> told;
    openInFinalCut(
        "/a.fcpxml", services, SecurityScope::system(), [](const auto& work) { work(); },
        [&](const auto& error) { told = error; });
    const std::string words = "Final Cut Pro could not be found. Your exported files have been saved.";
    EXPECT_EQ(told, (ServiceError{"Corvane", 1, words}));
}

} // namespace
} // namespace corvane
