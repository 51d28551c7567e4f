#include "KbaseFixture.h"

#include <windows.h>

#include <fstream>
#include <iterator>

#include "BenchControl.h"

namespace {

std::string TemporaryFile(const char* name) {
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    return std::string(folder) + "kbase" + std::to_string(GetCurrentProcessId()) + name;
}

}  // namespace

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFileText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

std::string SampleText(const std::string& name) {
    const std::string catalogue = SORVIK_CATALOGUE;
    return FileText(catalogue.substr(0, catalogue.rfind('/') + 1) + name);
}

KbaseTest::KbaseTest() : dictionaryPath_(TemporaryFile(".ddk")), databasePath_(TemporaryFile(".kpd")) {
    WriteFileText(dictionaryPath_, SampleText("sorvik.ddk"));
    WriteFileText(databasePath_, SampleText("sorvik.kpd"));
    bench::ResetBench();
}

KbaseTest::~KbaseTest() {
    EXPECT_EQ(bench::Accusations(), std::vector<std::string>());
    bench::ResetBench();
    DeleteFileA(dictionaryPath_.c_str());
    DeleteFileA(databasePath_.c_str());
}

void KbaseTest::OpenBoth() {
    dictionary_ = ddk_opendatabase(dictionaryPath_.c_str(), 1, 0);
    database_ = kbopendatabase(dictionaryPath_.c_str(), databasePath_.c_str(), 0);
    ASSERT_GT(dictionary_, 0);
    ASSERT_GT(database_, 0);
    ASSERT_NE(ddk_classsymboltoID(dictionary_, "dSilencerType", &silencers_), 0);
}

void KbaseTest::CloseBoth() {
    ddk_releasedatabase(dictionary_);
    kbclosedatabase(database_);
}

const bench::KbaseRecord* KbaseTest::Saved(const char* key) {
    std::string error;
    EXPECT_TRUE(bench::ReadKbaseDatabase(databasePath_, records_, error)) << error;
    return bench::FindKbaseRecord(records_, "dSilencerType", key);
}
