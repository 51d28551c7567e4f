// A maintainer's data folder beside the module: its result is used as it is, and the folder survives.
#include <cstdio>
#include <fstream>
#include <sstream>

#include "CommandBench.h"
#include "ResultText.h"

namespace {

class LocalData : public CommandBench {
 protected:
    LocalData() {
        CreateDirectoryA("Sorvik", nullptr);
        Picks("2A3");
        InTheConfigurator("choose SRC-250-900");
    }
    ~LocalData() override {
        for (const char* file : {"output.xml", "output.ddk", "output.kpd"})
            DeleteFileA(Path(file).c_str());
        EXPECT_TRUE(RemoveDirectoryA("Sorvik")) << "the folder is there to the end, with nothing else in it";
    }

    static std::string Path(const std::string& name) { return "Sorvik/" + name; }
    static void Write(const std::string& name, const std::string& text) {
        std::ofstream(Path(name), std::ios::binary) << text;
    }
    static std::string Read(const std::string& name) {
        std::ifstream file(Path(name), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
};

TEST_F(LocalData, ResultIsUsedAndNeverFetched) {
    const std::string result = ResultText(DeviceText().Text());
    Write("output.xml", result);
    AcceptsTheProposal("SORV2");
    ConfirmsInsertion();
    Run();
    ExpectCommitted();
    EXPECT_NE(Printed().find("Sorvik Klimora Cloud Plugin: Local data used.\n"), std::string::npos);
    EXPECT_EQ(CountOf("GET /klimora/export/"), 0u);
    EXPECT_EQ(Read("output.xml"), result);
    EXPECT_EQ(CountOf("GET /klimora/database/"), 2u) << "the database files are the builder's own";
    EXPECT_NE(Read("output.kpd").find("TEST-1"), std::string::npos);
}

TEST_F(LocalData, WithoutAResultItIsFetchedIntoTheFolder) {
    CancelsTheDialog();
    Run();
    EXPECT_EQ(CountOf("GET /klimora/export/"), 1u);
    EXPECT_NE(Read("output.xml").find("SRC-250-900"), std::string::npos);
    EXPECT_EQ(Printed().find("Local data used."), std::string::npos);
}

}  // namespace
