// The record builder beside what a whole run shows: the keys that it leaves on the device, whatever came of the record,
// and which answers of the database are failures. The database is a recorder here, and nothing is downloaded.
#include <windows.h>
#include <wininet.h>

#include "ImportPatch.h"
#include "SessionBench.h"
#include "kbase.h"

namespace {

KB_HANDLE handle = 0;
short saved = 0;
std::vector<std::string> calls;

HINTERNET WINAPI NoAddress(HINTERNET, LPCSTR, LPCSTR, DWORD, DWORD, DWORD_PTR) {
    return nullptr;
}
HINTERNET WINAPI AnAddress(HINTERNET, LPCSTR, LPCSTR, DWORD, DWORD, DWORD_PTR) {
    return &calls;
}
BOOL WINAPI NothingToRead(HINTERNET, LPVOID, DWORD, LPDWORD read) {
    *read = 0;
    return TRUE;
}
BOOL WINAPI CloseNothing(HINTERNET) {
    return TRUE;
}
KB_HANDLE OpenDictionary(const char*, int, int) {
    return handle;
}
KB_HANDLE OpenDatabase(const char*, const char*, int) {
    return handle;
}
int FindClass(KB_HANDLE, const char* symbol, KB_CLASSID*) {
    calls.push_back(std::string("class '") + symbol + "'");
    return *symbol ? 1 : 0;
}
KB_RECORD CreateRecord(KB_HANDLE, const KB_CLASSID*, const char* key) {
    calls.push_back(std::string("create ") + key);
    return &calls;
}
short DeleteRecord(KB_HANDLE, const KB_CLASSID*, const char* key) {
    calls.push_back(std::string("delete ") + key);
    return -1;
}
short SaveRecord(KB_HANDLE, KB_RECORD) {
    return saved;
}
short InsertNothing(KB_HANDLE, KB_RECORD*, short, const void*, short) {
    return -1;
}
KB_RECORD FindModel(KB_HANDLE, const char*, const char*, int) {
    return &handle;
}
void ReleaseRecord(KB_RECORD record) {
    calls.push_back(record == &calls ? "release record" : record == &handle ? "release model" : "release ?");
}
void ReleaseDictionary(KB_HANDLE dictionary) {
    calls.push_back("release dictionary " + std::to_string(dictionary));
}
void CloseDatabase(KB_HANDLE database) {
    calls.push_back("close database " + std::to_string(database));
}

class ProductRecord : public SessionBench {
 protected:
    ProductRecord() {
        EXPECT_EQ(session_.Initialize(), 0);
        calls.clear();
        handle = saved = 0;
    }

    // The current device's own tag afterwards.
    std::string Add(const std::string& command, const std::string& attributes) {
        Take(session_, "<r><DdkFileUrl>http://d</DdkFileUrl><KpdFileUrl>http://k</KpdFileUrl><device" + attributes +
                           "><ID>KEY</ID><ProductCodeALL>c</ProductCodeALL><DescriptionGBR>d</DescriptionGBR>"
                           "<KModelID>m</KModelID><AirDeviceDimData><Fnc>1</Fnc><D1>1</D1><D2>1</D2><Qvmin>1</Qvmin>"
                           "<Qvmax>1</Qvmax><Dpmin>1</Dpmin><Dpmax>1</Dpmax></AirDeviceDimData><Shape>0</Shape>"
                           "</device></r>");
        Printed();
        result_ = session_.AddDeviceFromXMLToDatabase(command);
        const std::string device = session_.CurrentDevice()->ToString();
        return device.substr(0, device.find('>') + 1);
    }
    static std::string Failure(const std::string& text) {
        return Line("AddDeviceToKlimoraProject PlugIn/KL_Conn_DevicesData(418):KlConn::AddDeviceFromXMLToDatabase " +
                    text);
    }

    KlConn session_;
    int result_ = 5;

 private:
    const ImportPatch patches_[13] = {{"InternetOpenUrlA", AnAddress},       {"InternetReadFile", NothingToRead},
                                      {"InternetCloseHandle", CloseNothing}, {"ddk_opendatabase", OpenDictionary},
                                      {"kbopendatabase", OpenDatabase},      {"ddk_classsymboltoID", FindClass},
                                      {"kbcreaterec", CreateRecord},         {"kbdeleterec", DeleteRecord},
                                      {"kbinsertatt", InsertNothing},        {"kbfindrec", FindModel},
                                      {"kbreleaserec", ReleaseRecord},       {"ddk_releasedatabase", ReleaseDictionary},
                                      {"kbclosedatabase", CloseDatabase}};
    const ImportPatch saving_{"kbsaverec", SaveRecord};
};

TEST_F(ProductRecord, KeysAreWrittenAfterASuccess) {
    saved = 1;  // neither the handles 0 nor a positive answer is a failure
    EXPECT_EQ(Add("SorvSIL", " UserCode=''"),
              "<device UserCode=\"\" KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY\" ProductKey=\"KEY\">");
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(Printed(), "");
    EXPECT_EQ(calls, (std::vector<std::string>{"class 'dSilencerType'", "delete KEY", "create KEY", "release model",
                                               "release record", "release dictionary 0", "close database 0"}));
}

TEST_F(ProductRecord, KeysAreWrittenAfterAFailureAsFarAsTheyAreKnown) {
    saved = -1;
    EXPECT_EQ(Add("SorvSIL", ""),
              "<device KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY\" ProductKey=\"KEY\" UserCode=\"SORV2\">");
    EXPECT_EQ(result_, -1);
    EXPECT_EQ(Printed(), Failure("Can'save device database record."));
    calls.clear();
    EXPECT_EQ(Add("sorvsil", " UserCode='S'"),
              "<device UserCode=\"S\" KPDClassName=\"\" ProductFamilyKey=\"\" ProductKey=\"\">");
    EXPECT_EQ(result_, -1);
    EXPECT_EQ(Printed(), Failure("Can't get device class id."));
    EXPECT_EQ(calls, (std::vector<std::string>{"class ''", "release dictionary 0", "close database 0"}));
    const ImportPatch patch("InternetOpenUrlA", NoAddress);
    Add("SorvSIL", "");
    EXPECT_EQ(result_, -1);
    EXPECT_NE(Printed().find(Failure("Can't download Klimora database dictionary http://d")), std::string::npos);
}

}  // namespace
