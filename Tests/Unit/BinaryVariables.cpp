// Copying memory and files into the server's binary variables.
#include <cstdio>

#include "KlimoraBench.h"
#include "Util/KLComUtils.h"

namespace {

class BinaryVariables : public KlimoraBench {
 protected:
    BinaryVariables() {
        StartServer();
        utils_.Connect();
    }
    ~BinaryVariables() override { DeleteFileA(file_); }

    void WriteFile(const std::string& bytes) {
        std::FILE* file = std::fopen(file_, "wb");
        ASSERT_NE(file, nullptr);
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }

    static std::string Bytes(size_t size) {
        std::string bytes;
        for (size_t i = 0; i < size; ++i)
            bytes += static_cast<char>(i * 37 + i / 251);
        return bytes;
    }

    static std::string Report(const std::string& text) {
        return "\nSorvik Klimora Cloud Plugin: Failed to set bin variable data. PlugIn/Util/KLComUtils(221):"
               "KLComUtils::BinVariableSetData " +
               text + "\n";
    }

    const char* file_ = "binary-variable.tmp";
    KLComUtils utils_;
};

TEST_F(BinaryVariables, MemoryGoesInChunks) {
    for (const size_t size : {1u, 10239u, 10240u, 10241u, 20480u, 30000u}) {
        const std::string bytes = Bytes(size);
        bench::ClearJournal();
        ASSERT_EQ(utils_.BinVariableSetData(2, bytes.data(), static_cast<int>(size)), 0);
        EXPECT_EQ(bench::BinaryVariable(2), bytes) << size;
        EXPECT_EQ(Calls("IKlimora200805::setBinVariableData 2 ").size(), (size + 10239) / 10240) << size;
        ASSERT_EQ(utils_.BinVariableFree(2), 0);
    }
}

TEST_F(BinaryVariables, HexadecimalIsUpperCaseHighNibbleFirst) {
    ASSERT_EQ(utils_.BinVariableSetData(2, "\x01\xAF\xF0", 3), 0);
    EXPECT_EQ(Calls("IKlimora200805::setBinVariable"),
              (std::vector<std::string>{"Size 2 3 -> 0", "Data 2 0 '01AFF0' -> 0"}));
    utils_.BinVariableFree(2);
}

TEST_F(BinaryVariables, LastChunkStandsAtItsOffset) {
    const std::string bytes = Bytes(10241);
    ASSERT_EQ(utils_.BinVariableSetData(2, bytes.data(), 10241), 0);
    const auto chunks = Calls("IKlimora200805::setBinVariableData 2 ");
    ASSERT_EQ(chunks.size(), 2u);
    EXPECT_EQ(chunks[1].size(), std::string("10240 'XX' -> 0").size());
    EXPECT_EQ(chunks[1].substr(0, 7), "10240 '");
    utils_.BinVariableFree(2);
}

TEST_F(BinaryVariables, FailuresOfTheMemoryForm) {
    EXPECT_EQ(utils_.BinVariableSetData(2, nullptr, 5), -4);
    EXPECT_EQ(utils_.BinVariableSetData(2, "x", 0), -4);
    bench::FailCall("IKlimora200805::setBinVariableSize", 1, 4);
    EXPECT_THROW(utils_.BinVariableSetData(2, "x", 1), const char*);
    const std::string bytes = Bytes(25000);
    bench::FailCall("IKlimora200805::setBinVariableData", 2, 6);
    EXPECT_EQ(utils_.BinVariableSetData(2, bytes.data(), 25000), 6);
    EXPECT_EQ(Calls("IKlimora200805::setBinVariableData").size(), 2u) << "the first failure ends the copy";
    utils_.BinVariableFree(2);
}

TEST_F(BinaryVariables, FileGoesInWhole) {
    const std::string bytes = Bytes(12000);
    WriteFile(bytes);
    EXPECT_EQ(utils_.BinVariableSetData(2, file_), 0);
    EXPECT_EQ(bench::BinaryVariable(2), bytes);
    EXPECT_EQ(std::remove(file_), 0) << "the file was closed";
    utils_.BinVariableFree(2);
}

TEST_F(BinaryVariables, FailuresOfTheFileForm) {
    EXPECT_EQ(utils_.BinVariableSetData(2, nullptr), -4);
    EXPECT_EQ(utils_.BinVariableSetData(2, ""), -4);
    EXPECT_EQ(utils_.BinVariableSetData(2, "no such file.gm"), -6);
    EXPECT_EQ(Printed(), Report("Can't open file no such file.gm"));
    WriteFile("");
    EXPECT_EQ(utils_.BinVariableSetData(2, file_), -4);
    EXPECT_EQ(Printed(), "");
    WriteFile("abc");
    bench::FailCall("IKlimora200805::setBinVariableSize", 1, 4);
    EXPECT_EQ(utils_.BinVariableSetData(2, file_), -1);
    EXPECT_EQ(Printed(), Report(""));
}

}  // namespace
