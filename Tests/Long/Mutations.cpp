// Results that are nearly right, 2,000 of them, and results around the XML limits.
#include <tinyxml.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <sstream>

#include "BenchKbase.h"
#include "HostileBench.h"

namespace {

constexpr unsigned kSeed = 20100801;
constexpr int kMutations = 2000;

// The result with its device a second time, with a user code that is in use.
std::string WithSecondDevice(std::string result) {
    const size_t from = result.find("<device"), end = result.find("</device>") + 9;
    std::string device = result.substr(from, end - from);
    device.insert(7, " UserCode=\"SORV1\"");
    return result.insert(end, device);
}

class Mutations : public HostileBench {
 protected:
    Mutations() { Tolerate({Breach::kOther, "mutation|limit", 0, "the product is what the result says"}); }

    void Arm(const bench::InjectedFault& failure) override {
        HostileBench::Arm(failure);
        TheWebServer().PublishInstead(result_);
    }
    // Only the three lines of Klimora's command may be queued.
    void AfterRun() override {
        HostileBench::AfterRun();
        if (!committed_) return;
        const std::string queued = Calls("AcApDocManager::sendStringToExecute ").at(0);
        EXPECT_EQ(std::count(queued.begin(), queued.end(), '\\'), 3) << queued;  // one for each line's end
        for (const char c : queued)
            EXPECT_TRUE((c >= ' ' && c != 0x7F) || c < 0) << queued;
        CheckRecord(queued);
    }

    // The module releases only the last device's record.
    bool MayRemain(const std::string& resource) const override {
        return resource.find("record ") == 0 && result_.find("<device") != result_.rfind("<device");
    }

    // Compares the saved record and the queued command with the last device of the result.
    void CheckRecord(const std::string& queued) {
        TiXmlDocument document;
        document.Parse(ResultText().c_str());
        const TiXmlElement* device = nullptr;
        for (auto* next = document.RootElement()->FirstChildElement("device"); next;
             next = next->NextSiblingElement("device"))
            device = next;
        const auto text = [](const TiXmlElement* parent, const char* name) {
            const TiXmlElement* child = parent ? parent->FirstChildElement(name) : nullptr;
            const char* const value = child ? child->GetText() : nullptr;
            return std::string(value ? value : "");
        };
        const bench::KbaseRecord record = bench::LastSavedRecord();
        EXPECT_EQ(record.key, text(device, "ID"));
        EXPECT_NE(queued.find("KLIMSILX\\n" + record.key + "\\n"), std::string::npos) << queued;
        // The sample dictionary limits the lengths; the fake rejects longer texts, which leaves them out of the record.
        const struct {
            int number;
            const char* name;
            size_t maxLength;
        } texts[] = {{1562, "ProductCodeALL", 80}, {9552, "DescriptionGBR", 500}, {9551, "DescriptionSWE", 500}};
        for (const auto& [number, name, maxLength] : texts) {
            const std::string expected = text(device, name);
            EXPECT_EQ(record.BytesOf(number), expected.size() <= maxLength ? expected : "") << name;
        }
        const TiXmlElement* const dimensions = device->FirstChildElement("AirDeviceDimData");
        const std::string bytes = record.BytesOf(1650);
        ASSERT_EQ(bytes.size(), 22u);
        size_t at = 0;
        for (const char* name : {"Fnc", "D1", "D2"}) {
            int16_t value = 0;
            std::memcpy(&value, &bytes[at], sizeof value);
            at += sizeof value;
            EXPECT_EQ(value, static_cast<int16_t>(std::strtol(text(dimensions, name).c_str(), nullptr, 10))) << name;
        }
        for (const char* name : {"Qvmin", "Qvmax"}) {
            float value = 0;
            std::memcpy(&value, &bytes[at], sizeof value);
            at += sizeof value;
            const float expected = static_cast<float>(std::strtod(text(dimensions, name).c_str(), nullptr));
            EXPECT_TRUE(value == expected || (value != value && expected != expected)) << name;
        }
    }
    std::string ResultText() const {
        std::string text;
        for (size_t i = 0; i < result_.size(); ++i) {
            if (result_[i] == '\r' && i + 1 < result_.size() && result_[i + 1] == '\n') continue;
            text += result_[i] == '\r' ? '\n' : result_[i];
        }
        return text;
    }

    const std::string good_ = GoodResult();
    const std::string twoDevices_ = WithSecondDevice(good_);
    std::string result_;
};

std::vector<std::string> Extremes() {
    std::istringstream texts(
        "` `0`-1`99999999999999999999`1e999`nan`\x01`\x7F`\t`&#10;`&#27;`A&#13;B`A\nB`\xFF\xFE`\xC3`\xED\xA0\x80`%s%n`"
        "%%`&`&x;`]]>`../../x`http://x.example/");
    std::vector<std::string> extremes;
    for (std::string text; std::getline(texts, text, '`');)
        extremes.push_back(text);
    extremes.insert(extremes.end(), {std::string(300, 'A'), std::string(40000, '9'), std::string(70000, 'x')});
    return extremes;
}

// The result after one to three changes, which depend only on the number.
std::string Mutated(std::string text, unsigned number) {
    static const std::vector<std::string> extremes = Extremes();
    std::mt19937 random(kSeed + number);
    const auto below = [&](size_t bound) { return bound ? random() % bound : 0; };
    for (size_t changes = 1 + below(3); changes > 0; --changes) {
        // Often at the product's key, which is used in most places.
        const size_t at = below(8) ? below(text.size()) : std::min(text.find("<ID>"), text.size() - 1);
        const size_t length = 1 + below(below(4) ? 8 : 400), change = below(6);
        const size_t open = text.find('<', at), close = text.find('>', open), next = text.find('<', close);
        const size_t nextClose = text.find('>', next);
        if (change == 0) text[at] = static_cast<char>(below(256));
        if (change == 1) text.erase(at, length);
        if (change == 2) text.insert(at, text.substr(at, length));
        if (change < 3 || nextClose == std::string::npos) continue;
        const std::string tag = text.substr(open, close + 1 - open), value = text.substr(close + 1, next - close - 1);
        if (change == 3)
            text.replace(open, nextClose + 1 - open, text.substr(next, nextClose + 1 - next) + value + tag);
        else
            text.replace(close + 1, value.size(), extremes[below(extremes.size())]);
    }
    return text;
}

TEST_F(Mutations, SurvivesMutatedResults) {
    std::printf("seed %u; the last mutation before a crash caused it:", kSeed);
    int committed = 0;
    for (int number = 1; number <= kMutations; ++number) {
        std::printf(" %d", number);
        std::fflush(stdout);
        result_ = Mutated(number % 4 ? good_ : twoDevices_, static_cast<unsigned>(number));
        committed += Plant({"mutation", number, {}}) && committed_;
    }
    std::printf("\n%d of them committed\n", committed);
    EXPECT_TRUE(committed >= 200 || planted() < kMutations);
}

TEST_F(Mutations, AcceptsResultsUpToTheLimits) {
    const auto with = [this](size_t count, const std::string& start, const std::string& piece, const std::string& end) {
        std::string text;
        for (size_t i = 0; i < count; ++i)
            text += piece == " n" ? piece + std::to_string(i) + "=''" : piece;
        for (size_t i = 0; i < count && end == "</a>"; ++i)
            text += end;
        return std::string(good_).insert(good_.rfind("</"), start + text + (end == "</a>" ? "" : end));
    };
    const struct {
        size_t maximum;
        const char *start, *piece, *end, *report;
    } cases[] = {{199, "", "<a>", "</a>", "/output.xml: More than 200 levels of elements (line "},
                 {200, "<a", " n", "/>", "/output.xml: More than 200 attributes in an element (line "},
                 {16 * 1024 * 1024 - good_.size(), "", " ", "", "/output.xml: More than 16 MB (line "}};
    int number = 0;
    for (const auto& c : cases) {
        for (const bool fits : {true, false}) {
            result_ = with(fits ? c.maximum : c.maximum + 1, c.start, c.piece, c.end);
            expected_ = {fits ? "" : "Sorvik Klimora Cloud Plugin: Can't parse xml data ", fits ? "" : c.report};
            if (Plant({"limit", ++number, {}}) && committed_ != fits) ADD_FAILURE() << "committed: " << committed_;
        }
    }
}

}  // namespace
