// What is read from a picked duct, which picks repeat the prompt, and which failures end the selection.
#include "CommaLocale.h"
#include "SessionBench.h"

namespace {

class DuctSelection : public SessionBench {
 protected:
    DuctSelection() {
        EXPECT_EQ(session_.Initialize(), 0);
        Printed();
    }

    struct Selected {
        int result;
        size_t prompts;
        std::string duct;  // the element in the document
    };
    // Picks one entity at each prompt, then presses Escape.
    Selected Pick(const std::vector<std::string>& handles) {
        const CommaLocale locale;
        bench::ClearCallLog();
        bench::ClearAnswers();
        for (const std::string& handle : handles)
            bench::QueueAnswer({bench::Answer::kPick, handle});
        bench::QueueAnswer({bench::Answer::kEscape, ""});
        if (ticpp::Element* earlier = session_.Root()->FirstChildElement("duct", false))
            session_.Root()->RemoveChild(earlier);
        Selected selected = {session_.SelectDuct(), Calls("acedSSGet :S:$ \\nSorvik: Select a duct:").size(), ""};
        if (const ticpp::Element* duct = session_.Root()->FirstChildElement("duct", false))
            selected.duct = duct->ToString();
        bench::ClearFaults();
        return selected;
    }

    // What is printed besides the prompts.
    static std::string Messages() {
        const std::string prompt = "\nSorvik: Select a duct:";
        return ReplaceAll(ReplaceAll(Printed(), prompt + "*Cancel*\n", ""), prompt + "\n", "");
    }

    KlConn session_;
};

TEST_F(DuctSelection, ReadsSizesAndFlowOfTheDuct) {
    const struct {
        const char *found, *replacement, *pick, *duct;
    } cases[] = {
        {"", "", "2A3", "<duct diameter_mm=\"250\" airflow_ls=\"200\" />"},
        {"", "", "2A5", "<duct width_mm=\"400\" height_mm=\"250\" airflow_ls=\"400\" />"},
        {"", "", "2AA", "<duct diameter_mm=\"315\" airflow_ls=\"270\" />"},  // type 69: the first duct, 2A9
        {"<ID>1</ID></Shape><Width>500<", "<ID>1</ID></Shape><Width>501<", "2A2",
         "<duct width_mm=\"501\" height_mm=\"300\" airflow_ls=\"600\" />"},  // type 82: the duct 2A1
        {">250<", ">0.0000001<", "2A3", "<duct airflow_ls=\"200\" />"},
        {">250<", ">0.00000011<", "2A3", "<duct diameter_mm=\"0.00000011\" airflow_ls=\"200\" />"},
        {">200<", ">0<", "2A3", "<duct diameter_mm=\"250\" />"},
        {">0</ID></Type>", ">3</ID></Type>", "2A3", "<duct diameter_mm=\"250\" airflow_ls=\"200\" />"},
    };
    for (const auto& c : cases) {
        OpenSampleWith(c.found, c.replacement);
        const Selected selected = Pick({c.pick});
        EXPECT_EQ(selected.result, 0) << c.pick << c.replacement;
        EXPECT_EQ(selected.prompts, 1u);
        EXPECT_EQ(selected.duct, c.duct);
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(DuctSelection, PromptsAgainSilentlyAfterAnUnsuitablePick) {
    const struct {
        const char *found, *replacement, *pick;
    } cases[] = {
        {"", "", "2A4"},  // neither duct nor bend nor branch
        {"", "", "2A0"},  // nor in a system
        {"", "", "2BD"},  // a bend without a duct
        {"<Name>Supply air</Name><Type><ID>0", "<Name>Supply air</Name><Type><ID>4", "2A3"},
        {"<Name>Supply air</Name><Type><ID>0", "<Name>Supply air</Name><Type><ID>-1", "2A3"},
    };
    for (const auto& c : cases) {
        OpenSampleWith(c.found, c.replacement);
        const Selected selected = Pick({bench::AddEntity({"", "AcDbLine", "0"}), c.pick});
        EXPECT_EQ(selected.result, -1) << c.pick << c.replacement;
        EXPECT_EQ(selected.prompts, 3u);
        EXPECT_EQ(selected.duct, "");
        EXPECT_TRUE(Calls("IKlimora200805::getPartAtt '0'").empty()) << "an open end has no part";
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(DuctSelection, ReadsBothSizesBeforeRejectingAPick) {
    bench::ClearFaults();
    bench::FailCall("IKlimora200805::getPartAtt", 4, 9);
    EXPECT_EQ(Pick({"2A5"}).prompts, 2u);
    EXPECT_EQ(Calls("IKlimora200805::getPartAtt '2A5' '/part/height'").size(), 1u);
    EXPECT_EQ(Calls("IKlimora200805::getPartAtt '2A5' '/part/qv_sizingflow/ls'").size(), 0u);
}

TEST_F(DuctSelection, SkipsAnUnreadableConnectedPart) {
    bench::ClearFaults();
    bench::FailCall("IKlimora200805::getPartAtt", 6, -9);
    EXPECT_EQ(Pick({"2AA"}).result, 0);
    EXPECT_EQ(Calls("IKlimora200805::getPartAtt '2AB' '/part/diameter'").size(), 1u) << "its second duct";
    EXPECT_EQ(Messages(), "");
}

TEST_F(DuctSelection, ReportsANegativeResultAndEnds) {
    const struct {
        const char *pick, *path;
        int ordinal;
    } cases[] = {{"2A3", nullptr, 1},  // the system's type does not end the selection
                 {"2A3", "/Part/Type/ID", 2}, {"2A3", "/part/shape/id", 3},        {"2A3", "/part/diameter", 4},
                 {"2A5", "/part/height", 5},  {"2A3", "/part/qv_sizingflow/ls", 5}};
    for (const auto& c : cases) {
        for (const int code : {-9, 9}) {
            const bool ends = code < 0 && c.path;
            bench::ClearFaults();
            bench::FailCall("IKlimora200805::getPartAtt", c.ordinal, code);
            const Selected selected = Pick({c.pick});
            SCOPED_TRACE(std::to_string(c.ordinal) + " of " + c.pick);
            EXPECT_EQ(selected.result, ends ? -9 : -1);
            EXPECT_EQ(selected.prompts, ends ? 1u : 2u);
            EXPECT_EQ(selected.duct, "");
            EXPECT_EQ(Messages(),
                      ends ? Line(std::string("Can not read '") + c.path + "' of the duct from Klimora (-9).") : "");
        }
    }
}

}  // namespace
