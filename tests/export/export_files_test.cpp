#include "export/export_files.h"
#include "support/failing_files.h"
#include "support/refusals.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::string>;

TEST(ExportNames, EndAtTenThousandAndWhereTheFolderHasNoRoom)
{
    const auto upTo9999 = [](const std::string& name) { return !name.starts_with("I Corvane 10000."); };
    EXPECT_EQ(exportNames("I", 255, upTo9999).xml, "I Corvane 10000.fcpxml");
    EXPECT_REFUSED(
        exportNames("I", 255, [](const std::string&) { return true; }),
        "Choose another folder or clear space for a new export name.");
    std::string days;
    for (int n = 0; n < 100; ++n)
        days += "日";
    const ScratchFolder folder;
    EXPECT_TRUE(somethingNamed(writeExportFiles(folder.path(), "", "", days).xmlURL)) << "cut where there is no room";
}

TEST(ExportFiles, AreWholeOrNotThereWhicheverCallFails)
{
    for (const bool nameless : {true, false}) {
        bool failed = true;
        for (int failing = 0; failed; ++failing) {
            const ScratchFolder folder;
            FailingFiles calls(failing, EDQUOT);
            calls.nameless = nameless;
            try {
                (void)writeExportFiles(folder.path(), "<a/>", "record", "I", calls);
                failed = false;
                EXPECT_GT(failing, 12);
            } catch (const std::runtime_error& failure) {
                const bool inDocument = folder.names().empty();
                EXPECT_STREQ(
                    failure.what(), inDocument ? "Cannot write I Corvane.fcpxml: Disk quota exceeded."
                                               : "The XML was saved as I Corvane.fcpxml, but the settings record could "
                                                 "not be saved: Cannot write I Corvane.settings.txt: Disk quota "
                                                 "exceeded.");
                EXPECT_TRUE(inDocument || folder.names() == Names{"I Corvane.fcpxml"}) << failing;
            }
        }
    }
}

} // namespace
} // namespace corvane
