// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/ProjectDialogs.h"

#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;

/// Answers after some time, as a user does.
class ScriptedChooser final : public FileChooser {
public:
    explicit ScriptedChooser(VirtualTime& time)
        : m_time(time)
    {}
    Task<std::vector<FileUrl>> showOpenPanel(OpenPanel panel) override
    {
        panels.push_back(std::move(panel));
        const std::vector<FileUrl> answer = chosen; // the panel may outlast the test
        co_await m_time.pass(1);
        co_return answer;
    }

    std::vector<FileUrl> chosen;
    std::vector<OpenPanel> panels;

private:
    VirtualTime& m_time;
};

struct ProjectPanels : SessionTest {
    ScriptedChooser chooser{time};
    std::unique_ptr<ProjectDialogs> projects = std::make_unique<ProjectDialogs>(*session, dialogs, chooser, localized);
};

TEST_F(ProjectPanels, OpeningAsksForOneCompositionAndRestoresIt)
{
    projectFiles.files["/swim.zumetaproj"] = ProjectState();
    chooser.chosen = {FileUrl("/swim.zumetaproj")};
    session->setShowOpenProjectPanel(true);
    ASSERT_EQ(chooser.panels.size(), 1U);
    EXPECT_EQ(chooser.panels[0].extensions, QStringList(QStringLiteral("zumetaproj")));
    EXPECT_EQ(chooser.panels[0].title, QStringLiteral("[Open Project]"));
    EXPECT_FALSE(chooser.panels[0].allowsMultiple);
    EXPECT_TRUE(session->showOpenProjectPanel());
    advance(3);
    EXPECT_FALSE(session->showOpenProjectPanel());
    EXPECT_TRUE(hasLogged(QStringLiteral("Project loaded from /swim.zumetaproj")));
}

TEST_F(ProjectPanels, ClosingTheOpenPanelChangesNothing)
{
    session->setShowOpenProjectPanel(true);
    advance(3);
    EXPECT_FALSE(session->showOpenProjectPanel());
    EXPECT_TRUE(log.empty());
    session->setShowOpenProjectPanel(true);
    EXPECT_EQ(chooser.panels.size(), 2U);
}

TEST_F(ProjectPanels, KeepingProposesTheNameAndWritesToThePlace)
{
    enterComposite(WorkflowStep::step3, {0, 10}, {0, 10});
    dialogs.savePlace = FileUrl("/kept.zumetaproj");
    session->prepareProjectForSave();
    advance(0.5);
    ASSERT_EQ(dialogs.savePanels.size(), 1U);
    EXPECT_EQ(dialogs.savePanels[0].proposedName,
              session->projectSaveDefaultFilename() + QStringLiteral(".zumetaproj"));
    EXPECT_EQ(dialogs.savePanels[0].extension, QStringLiteral("zumetaproj"));
    EXPECT_FALSE(dialogs.savePanels[0].callerAsksToReplace);
    EXPECT_TRUE(session->showSaveProjectPanel());
    advance(3);
    EXPECT_FALSE(session->showSaveProjectPanel());
    EXPECT_TRUE(projectFiles.files.contains("/kept.zumetaproj"));
}

TEST_F(ProjectPanels, ClosingTheSavePanelKeepsNothingAndItCanBeOpenedAgain)
{
    enterComposite(WorkflowStep::step3, {0, 10}, {0, 10});
    for (const size_t panels : {1U, 2U}) {
        session->prepareProjectForSave();
        advance(3);
        EXPECT_EQ(dialogs.savePanels.size(), panels);
        EXPECT_FALSE(session->showSaveProjectPanel());
    }
    EXPECT_TRUE(projectFiles.files.empty());
}

TEST_F(ProjectPanels, OneAtATime)
{
    enterComposite(WorkflowStep::step3, {0, 10}, {0, 10});
    session->setShowOpenProjectPanel(true);
    session->prepareProjectForSave();
    advance(0.5);
    EXPECT_TRUE(dialogs.savePanels.empty());
    EXPECT_FALSE(session->showSaveProjectPanel());
    advance(3);
    session->prepareProjectForSave();
    advance(0.5);
    EXPECT_EQ(dialogs.savePanels.size(), 1U);
}

TEST_F(ProjectPanels, AnAnswerAfterTheWindowHasGoneIsNone)
{
    chooser.chosen = {FileUrl("/swim.zumetaproj")};
    session->setShowOpenProjectPanel(true);
    projects.reset();
    advance(3);
    EXPECT_TRUE(log.empty());
}

}
}
