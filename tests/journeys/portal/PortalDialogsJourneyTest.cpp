// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/portal/LentDialogs.h"
#include "journeys/window/WindowJourney.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using namespace test;
using testing::AllOf;
using testing::HasSubstr;
using testing::SizeIs;

using DialogsOfThePortal = WindowJourney;

TEST_F(DialogsOfThePortal, AskForTheFilesOfOneVideo)
{
    open();
    confirmCamera();
    click(item("chooseVideoButton"));
    ASSERT_TRUE(waitFor([&] { return app().session().aboveVideoURL().has_value(); }, 15000));
    std::vector<FileUrl> files;
    for (const std::filesystem::path& file : LentDialogs::filesToOpen())
        files.emplace_back(file.native());
    ASSERT_TRUE(waitFor([&] { return app().session().projectState().aboveVideo.has_value(); }, 15000));
    EXPECT_EQ(app().session().projectState().aboveVideo->fileURLs, files) << "both chapters";
    ASSERT_TRUE(waitFor([] { return LentDialogs::questions().size() == 1; }));
    EXPECT_THAT(LentDialogs::questions().front().toStdString(),
                AllOf(HasSubstr("OpenFile\t"), HasSubstr("\tseveral\t"), HasSubstr("*.mp4"), HasSubstr("*.MP4")));
}

}
}
