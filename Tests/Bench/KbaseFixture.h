// A working folder with the sample's dictionary and database, and a bench that starts clean and ends without
// accusations unless the case has looked at them.
#pragma once

#include <string>
#include <vector>

#include "KbaseFile.h"
#include "gtest/gtest.h"
#include "kbase.h"

std::string FileText(const std::string& path);
void WriteFileText(const std::string& path, const std::string& text);
// The sample file of that name, beside the catalogue.
std::string SampleText(const std::string& name);

class KbaseTest : public testing::Test {
 protected:
    KbaseTest();
    ~KbaseTest() override;

    // Opens dictionary and database and looks up the class of silencers.
    void OpenBoth();
    void CloseBoth();
    KB_RECORD CreateSilencer(const char* key) { return kbcreaterec(database_, &silencers_, key); }
    short Insert(KB_RECORD record, short attribute, const void* value, short count) {
        return kbinsertatt(database_, &record, attribute, value, count);
    }
    // The saved record as the file has it; null when it has none.
    const bench::KbaseRecord* Saved(const char* key);

    const std::string dictionaryPath_;
    const std::string databasePath_;
    KB_HANDLE dictionary_ = -1;
    KB_HANDLE database_ = -1;
    KB_CLASSID silencers_ = {{-1, -1}};

 private:
    std::vector<bench::KbaseRecord> records_;
};
