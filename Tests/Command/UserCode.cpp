// The user-code dialog: how it opens, what it refuses, and which code the product gets. Runs that go through end with a
// refused product, so that each shows the code in the command that reached Klimora.
#include "CommandBench.h"

namespace {

using bench::BoxIcon;

class UserCode : public CommandBench {
 protected:
    UserCode() {
        Picks("2A3");
        InTheConfigurator("choose SRC-250-900");
    }

    // A message of the dialog itself, which carries name and version.
    void MeetsDialogBox(const std::string& text, BoxIcon icon, const std::vector<std::string>& buttons,
                        const std::string& answer) {
        robot().Expect(bench::Box(text).Captioned(Title()).Icon(icon).Buttons(buttons).AnswerWith(answer));
    }
    void MeetsUsedCode(const std::string& answer) {
        MeetsDialogBox("User code is already in use.\nDo you want to replace existing product?", BoxIcon::kWarning,
                       {"Yes", "No"}, answer);
    }
    // An icon of the module in the size of a title or a task switcher: loaded as a shared one it is the same handle.
    static HANDLE SharedIcon(int resource, int width, int height) {
        return LoadImageA(GetModuleHandleA("Sorvik_R24_x64.arx"), MAKEINTRESOURCEA(resource), IMAGE_ICON,
                          GetSystemMetrics(width), GetSystemMetrics(height), LR_SHARED);
    }
    void KlimoraRefuses() { bench::FailCall("IKlimora200805::manageProductData", 1, -5); }

    std::string SentCode() const {
        for (const std::string& command : Calls("IKlimora200805::manageProductData ")) {
            const size_t from = command.find("<Usercode>") + 10;
            return command.substr(from, command.find("</Usercode>") - from);
        }
        return "(not sent)";
    }
};

TEST_F(UserCode, OpensCentredWithTheProposalAndFocusOnOk) {
    bench::SeenDialog seen;
    robot().Expect(bench::Dialog("Configurator")
                       .Shows(1102, "SORV2")
                       .Look([&](const bench::SeenDialog& d) { seen = d; })
                       .Press(IDCANCEL));
    Run();
    EXPECT_EQ(seen.focusId, IDOK);
    EXPECT_EQ(seen.ButtonTexts(), "OK Cancel");
    EXPECT_EQ(seen.text, "User code");
    EXPECT_EQ(seen.owner, bench::MainWindow());
    EXPECT_FALSE(seen.watchedEnabled);
    EXPECT_NE(seen.smallIcon, nullptr);
    EXPECT_NE(seen.largeIcon, nullptr);
    EXPECT_EQ(seen.smallIcon, SharedIcon(115, SM_CXSMICON, SM_CYSMICON));
    EXPECT_EQ(seen.largeIcon, SharedIcon(118, SM_CXICON, SM_CYICON));
    const auto middle = [](const RECT& r) { return POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2}; };
    EXPECT_NEAR(middle(seen.rectangle).x, middle(seen.ownerRectangle).x, 1);
    EXPECT_NEAR(middle(seen.rectangle).y, middle(seen.ownerRectangle).y, 1);
    ExpectNothingChanged();
}

TEST_F(UserCode, CancelAndClosedWindowEndTheCommand) {
    for (const bool close : {false, true}) {
        StartOver();
        auto dialog = bench::Dialog("Configurator");
        robot().Expect(close ? dialog.Close() : dialog.Press(IDCANCEL));
        Run();
        EXPECT_EQ(CountOf("ddk_opendatabase"), 0u);
        ExpectNothingChanged();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

TEST_F(UserCode, EmptyCodeIsRefused) {
    TypesUserCode("");
    MeetsDialogBox("User code can not be empty", BoxIcon::kError, {"OK"}, "OK");
    TypesUserCode("AHU7");
    KlimoraRefuses();
    Run();
    EXPECT_EQ(SentCode(), "AHU7");
    ExpectNothingChanged();
}

TEST_F(UserCode, UsedCodeDeclinedThenAnother) {
    TypesUserCode("SORV1");
    MeetsUsedCode("No");
    robot().Expect(bench::Dialog("Configurator").Shows(1102, "SORV1").Type(1102, "SORV9").Press(IDOK));
    KlimoraRefuses();
    Run();
    EXPECT_EQ(SentCode(), "SORV9");
    ExpectNothingChanged();
}

TEST_F(UserCode, UsedCodeAccepted) {
    TypesUserCode("SORV1");
    MeetsUsedCode("Yes");
    KlimoraRefuses();
    Run();
    EXPECT_EQ(SentCode(), "SORV1");
    ExpectNothingChanged();
}

TEST_F(UserCode, UsedCodeDeclinedThenCancelled) {
    TypesUserCode("SORV1");
    MeetsUsedCode("No");
    CancelsTheDialog();
    Run();
    EXPECT_EQ(SentCode(), "(not sent)");
    ExpectNothingChanged();
}

TEST_F(UserCode, LongCodeIsCutToTenCharacters) {
    TypesUserCode("ABCDEFGHIJK");
    KlimoraRefuses();
    Run();
    EXPECT_EQ(SentCode(), "ABCDEFGHIJ");
    ExpectNothingChanged();
}

// Adds silencers with these codes to the project's list.
void AddSilencers(const std::vector<std::string>& codes) {
    std::string project = bench::ProjectXml(), parts, error;
    for (const std::string& code : codes)
        parts += "<Part><UserCode>" + code + "</UserCode><ProductCode>C</ProductCode><ProductKey>K" + code +
                 "</ProductKey><ProductFamilyKey>K" + code + "</ProductFamilyKey><Length>900</Length></Part>";
    const size_t end = project.find("</KPDClass>");
    ASSERT_NE(end, std::string::npos);
    project.insert(end, parts);
    bench::NewDrawing("Office.dwg");
    ASSERT_TRUE(bench::OpenProjectText(project, error)) << error;
}

TEST_F(UserCode, FirstFreeNumberIsProposed) {
    const struct {
        std::vector<std::string> others;  // beside SORV1
        const char* proposal;
    } cases[] = {{{"SORV3"}, "SORV2"},
                 {{"SORV2", "SORV3"}, "SORV4"},
                 {{"sorv2"}, "SORV2"},
                 {{"SORV2 "}, "SORV2"},
                 {{"SORV02", "SORV10"}, "SORV2"}};
    for (const auto& c : cases) {
        UseServer({});
        AddSilencers(c.others);
        StartOver();
        robot().Expect(bench::Dialog("Configurator").Shows(1102, c.proposal).Press(IDCANCEL));
        Run();
        ExpectNothingChanged();
        Picks("2A3");
    }
    bench::ClearAnswers();
}

TEST_F(UserCode, QueriesGrowWithTheNumberOfSilencers) {
    // The project's silencers are listed, and counted for the proposal: a fixed number of queries each.
    size_t queries[2] = {};
    for (int round = 0; round < 2; ++round) {
        std::vector<std::string> codes;
        for (int i = 0; i < 100 * (round + 1) - 1; ++i)
            codes.push_back("X" + std::to_string(i));
        UseServer({});
        AddSilencers(codes);
        StartOver();
        CancelsTheDialog();
        Run();
        queries[round] = CountOf("IKlimora200805::getPartAtt");
        Picks("2A3");
    }
    EXPECT_EQ(queries[1] - queries[0], 4u * 100) << "three attributes of the list and one code";
    bench::ClearAnswers();
}

}  // namespace
