// Copying memory and files into the server's binary variables.
#include <cstdio>
#include <cstdlib>

#include "ImportPatch.h"
#include "KlimoraBench.h"
#include "TestFiles.h"

namespace {

constexpr char kFile[] = "binary-variable.tmp";
constexpr size_t kFileSize = 12000;

class BinaryVariables : public ConnectedBench {
 protected:
    BinaryVariables() { Start(); }
    ~BinaryVariables() override { std::remove(kFile); }

    static std::string Bytes(size_t size) {
        std::string bytes;
        for (size_t i = 0; i < size; ++i)
            bytes += static_cast<char>(i * 37 + i / 251);
        return bytes;
    }
    // Sending a file returns a code and reports a text.
    void ExpectFailure(const char* file, int code, const std::string& text) {
        EXPECT_EQ(utils_.BinVariableSetData(2, file), code);
        EXPECT_EQ(Printed(),
                  Report("Failed to set bin variable data.", "KLComUtils(221):KLComUtils::BinVariableSetData", text));
    }
};

TEST_F(BinaryVariables, SendsMemoryInChunksOfUpperCaseDigits) {
    ASSERT_EQ(utils_.BinVariableSetData(2, "\x01\xAF\xF0", 3), 0);
    EXPECT_EQ(Calls("IKlimora200805::setBinVariable"),
              (std::vector<std::string>{"Size 2 3 -> 0", "Data 2 0 '01AFF0' -> 0"}));
    ASSERT_EQ(utils_.BinVariableFree(2), 0);
    for (const size_t size : {1u, 10240u, 10241u, 20480u, 30000u}) {
        const std::string bytes = Bytes(size);
        bench::ClearCallLog();
        ASSERT_EQ(utils_.BinVariableSetData(2, bytes.data(), static_cast<int>(size)), 0);
        EXPECT_EQ(bench::BinaryVariable(2), bytes) << size;
        EXPECT_EQ(Calls("IKlimora200805::setBinVariableData 2 ").size(), (size + 10239) / 10240) << size;
        ASSERT_EQ(utils_.BinVariableFree(2), 0);
    }
}

TEST_F(BinaryVariables, RejectsBadMemoryAndStopsAtTheFirstFailure) {
    EXPECT_EQ(utils_.BinVariableSetData(2, nullptr, 5), -4);
    EXPECT_EQ(utils_.BinVariableSetData(2, "x", 0), -4);
    EXPECT_TRUE(bench::CallLog().empty());
    bench::FailCall("IKlimora200805::setBinVariableSize", 1, 4);
    EXPECT_THROW(utils_.BinVariableSetData(2, "x", 1), const char*);
    bench::FailCall("IKlimora200805::setBinVariableData", 2, 6);
    EXPECT_EQ(utils_.BinVariableSetData(2, Bytes(25000).data(), 25000), 6);
    EXPECT_EQ(Calls("IKlimora200805::setBinVariableData").size(), 2u) << "the first failure ends the copy";
    EXPECT_EQ(utils_.BinVariableFree(2), 0);
    EXPECT_LT(utils_.BinVariableFree(2), -100) << "the server's own code";
}

TEST_F(BinaryVariables, SendsAWholeFileOrReportsTheFailure) {
    EXPECT_EQ(utils_.BinVariableSetData(2, nullptr), -4);
    EXPECT_EQ(utils_.BinVariableSetData(2, ""), -4);
    EXPECT_EQ(Printed(), "");
    ExpectFailure("no such file.gm", -6, "Can't open file no such file.gm");
    WriteWholeFile(kFile, Bytes(kFileSize));
    {
        // Fails only the allocation for the file: its size and a terminator.
        const ImportPatch patch(
            "malloc", +[](size_t size) { return size == kFileSize + 1 ? nullptr : std::calloc(1, size); });
        ExpectFailure(kFile, -7, "Can't allocate memory to load file binary-variable.tmp");
    }
    {
        const ImportPatch patch(
            "fread", +[](void*, size_t, size_t count, std::FILE*) { return count - 1; });
        ExpectFailure(kFile, -8, "Can't read data from file binary-variable.tmp");
    }
    EXPECT_TRUE(Calls("IKlimora").empty());
    bench::FailCall("IKlimora200805::setBinVariableSize", 1, 4);
    ExpectFailure(kFile, -1, "");
    EXPECT_EQ(utils_.BinVariableSetData(2, kFile), 0);
    EXPECT_EQ(bench::BinaryVariable(2), Bytes(kFileSize));
    utils_.BinVariableFree(2);
    WriteWholeFile(kFile, "");
    EXPECT_EQ(std::remove(kFile), 0) << "the file was closed each time";
    WriteWholeFile(kFile, "");
    EXPECT_EQ(utils_.BinVariableSetData(2, kFile), -4);
    EXPECT_EQ(Printed(), "");
}

}  // namespace
