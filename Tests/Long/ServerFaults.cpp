// Faults of the web server with each of a product's three files: the module must report them and change nothing.
#include "HostileBench.h"

namespace {

constexpr char kResult[] = "/klimora/export/";
constexpr char kDictionary[] = "/klimora/database/2.4/sorvik.ddk";
constexpr char kDatabase[] = "/klimora/database/2.4/sorvik.kpd";

constexpr char kEmpty[] = "/output.xml: Error document empty..";
constexpr char kNoProduct[] = "\nSorvik Klimora Cloud Plugin: Can not find product data in output.xml";
constexpr char kNotOpened[] = "Sorvik Klimora Cloud Plugin: Error DownloadFile: Can't open file from internet\n";
constexpr char kNoDictionary[] = "AddDeviceFromXMLToDatabase Can't open kbase database dictionary ";
constexpr char kNoDatabase[] = "AddDeviceFromXMLToDatabase Can't open kbase database C:";

struct Case {
    const char* what;
    const char* path;
    std::string bytes;
    const char* report;  // null when the product is inserted
    bench::ServerFault fault = bench::ServerFault::kNone;
};

class ServerFaults : public HostileBench {
 protected:
    void Arm(const bench::InjectedFault& failure) override {
        HostileBench::Arm(failure);
        TheWebServer().SetFault(case_->path, case_->fault);
        if (case_->fault == bench::ServerFault::kNone) TheWebServer().ServeRaw(case_->path, case_->bytes);
    }
    void AfterRun() override {
        HostileBench::AfterRun();
        const bool exported =
            ShownToUser().find("[Sorvik Klimora Cloud Plugin: No product exported.\n]") == std::string::npos;
        EXPECT_EQ(exported, !case_->report || case_->path != kResult);
        EXPECT_EQ(committed_, !case_->report);
    }

    const Case* case_ = nullptr;
};

std::string Answer(const std::string& body, const std::string& headers, const char* status = "200 OK") {
    return std::string("HTTP/1.1 ") + status + "\r\nContent-Type: text/xml\r\n" + headers + "\r\n" + body;
}
std::string Length(size_t size) {
    return "Content-Length: " + std::to_string(size) + "\r\n";
}

std::string Whole(const std::string& body) {
    return Answer(body, Length(body.size()));
}

TEST_F(ServerFaults, ReportsEveryFaultOfTheWebServer) {
    const std::string result = GoodResult(), dictionary = Published(kDictionary), database = Published(kDatabase);
    const std::string length = Length(result.size()), chunked = "Transfer-Encoding: chunked\r\n";
    const std::string page = "<html><head/><body><p>Sorry</p></body></html>";
    std::string garbage, wide;
    for (unsigned i = 0; i < 5000; ++i)
        garbage += static_cast<char>(i * i / 7);
    for (const char c : result)
        wide += {c, '\0'};
    const Case cases[] = {
        {"no answer", kResult, "", kEmpty},
        {"no HTTP", kResult, "220 ready\r\n", kEmpty},
        {"a status and no more", kResult, "HTTP/1.1 200 OK\r\n", kEmpty},
        {"half a head", kResult, "HTTP/1.1 200 OK\r\nContent-Le", kEmpty},
        {"a length beyond the end", kResult, Answer(result, Length(result.size() + 1000)), nullptr},
        {"a length before the end", kResult, Answer(result, Length(result.size() / 2)),
         "/output.xml: Failed to read Element name (line 24, column 10)."},
        {"a negative length", kResult, Answer(result, "Content-Length: -5\r\n"), nullptr},
        {"a length that is not a number", kResult, Answer(result, "Content-Length: many\r\n"), nullptr},
        {"two lengths", kResult, Answer(result, length + Length(7)), nullptr},
        {"an error page", kResult, Answer(page, Length(page.size()), "500 Internal Server Error"), kNoProduct},
        {"an error with the right file", kResult, Answer(result, length, "404 Not Found"), nullptr},
        {"a redirection without an address", kResult, Answer("", Length(0), "302 Found"), kEmpty},
        {"a redirection to a file", kResult, Answer("", "Location: file:///c:/windows/win.ini\r\n", "302 Found"),
         kEmpty},
        {"the file in chunks", kResult,
         Answer("7\r\n" + result.substr(0, 7) + "\r\nFFFFFF\r\n" + result.substr(7), chunked), nullptr},
        {"a chunk without a size", kResult, Answer("size\r\n" + result, chunked),
         "Can't parse xml data The document has no child element."},
        {"a chunk of any size", kResult, Answer("FFFFFFFFFFFFFFFFFF\r\n" + result, chunked), nullptr},
        {"marked as gzip, but plain", kResult, Answer(result, "Content-Encoding: gzip\r\n" + length), nullptr},
        {"a header of a megabyte", kResult, Answer(result, "X: " + std::string(1 << 20, 'x') + "\r\n" + length),
         nullptr},
        {"another answer first", kResult, "HTTP/1.1 100 Continue\r\n\r\n" + Whole(result), nullptr},
        {"garbage", kResult, Whole(garbage), kEmpty},
        {"wide characters", kResult, Whole(wide), "Can't parse xml data The document has no child element."},
        {"more than 16 MB", kResult, Whole(std::string(17 << 20, ' ')),
         "/output.xml: More than 16 MB (line 1, column 16777217)."},
        {"the file in drops", kResult, Whole(result), nullptr},
        {"a page", kResult, Whole(page), kNoProduct},
        {"the dictionary", kResult, Whole(dictionary), kEmpty},
        {"no answer", kDictionary, "", kNoDictionary},
        {"a page", kDictionary, Answer(page, Length(page.size()), "404 Not Found"), kNoDictionary},
        {"half the file", kDictionary, Answer(dictionary.substr(0, 700), Length(dictionary.size())), kNoDictionary},
        {"garbage", kDictionary, Whole(garbage), kNoDictionary},
        {"the database", kDictionary, Whole(database), kNoDictionary},
        {"no HTTP", kDatabase, "220 ready\r\n", kNoDatabase},
        {"no answer", kDatabase, "", kNoDatabase},
        {"half the file", kDatabase, Answer(database.substr(0, database.size() / 2), Length(database.size())),
         kNoDatabase},
        {"garbage", kDatabase, Whole(garbage), kNoDatabase},
        {"the dictionary", kDatabase, Whole(dictionary), kNoDatabase},
        {"the result", kDatabase, Whole(result), kNoDatabase},
        {"a redirection to another host", kResult, Answer("", "Location: http://127.0.0.1:1/\r\n", "302 Found"),
         "/output.xml: Error reading end tag. (line 1, column 73)."},
        {"a refusal", kResult, "", kNotOpened, bench::ServerFault::kRefused},
        {"a refusal", kDictionary, "", kNotOpened, bench::ServerFault::kRefused},
        {"a refusal", kDatabase, "", kNotOpened, bench::ServerFault::kRefused},
        {"a reset", kDatabase, "", kNoDatabase, bench::ServerFault::kReset},
    };
    int number = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.path) + ": " + c.what);
        case_ = &c;
        expected_ = {c.report ? c.report : ""};
        Plant({"answer", ++number, {}});
    }
}

}  // namespace
