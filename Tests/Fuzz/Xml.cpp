// A result file: the XML limits, the parser, the readers of a record. The input is a list of edits
// of a good result or of one element, so that short inputs are deep, wide, or nearly right.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

#include "AirDeviceData.h"
#include "Catalogue.h"
#include "Fuzz.h"
#include "Util/KLUtils_Text.h"
#include "Util/XmlLimits.h"

namespace {

constexpr char kPieces[] =
    "<a>`</a>`<a/>`<a `</`/>`/`<`>`=`'`\"`&`&#x`&#`;`<!--`-->`<?p`?>`<!`<![CDATA[`]]>`x`1` `\n`\r`\x01`\x7F`\x80`\xC2`"
    "\xE2`\xF0`\xEF\xBB\xBF`\xEF`\r\n`-9`99999999`1e999`a:b`<Qvmin>`<Shape>`<dLw>`<b>`</b>` x=1`<?xml version='1.0' "
    "encoding='UTF-8'?>`<?xml encoding='x'?>";

std::string Edited(FuzzedDataProvider& input) {
    static const std::string good = bench::Catalogue(SORVIK_CATALOGUE).Result({"SRC-250-900"}, "http://x", {});
    static const std::vector<std::string> pieces = KLUtils::Split(kPieces, "`");
    std::string text = input.ConsumeBool() ? good : "<a >";
    for (int attribute = 0; input.remaining_bytes() && text.size() < 8000;) {
        const uint8_t what = input.ConsumeIntegral<uint8_t>(), drawn = input.ConsumeIntegral<uint8_t>();
        const int times = drawn < 64 ? drawn : 198 + drawn % 5;  // often around the limits
        const uint16_t where = input.ConsumeIntegral<uint16_t>();
        const size_t at = where % 2 ? text.size() : where / 2 % (text.size() + 1);
        if (what % 16 == 0) text.erase(at, static_cast<size_t>(times));
        for (int i = 0; i < times && what % 16; ++i)
            text.insert(at,
                        what % 16 == 1 ? " n" + std::to_string(++attribute) + "='1'" : pieces[what % pieces.size()]);
    }
    return text;
}

std::string WithLineFeeds(const std::string& text) {
    std::string result;
    for (const std::string& line : KLUtils::Split(text, "\r\n"))
        result += line + '\n';
    if (!result.empty()) result.pop_back();
    std::replace(result.begin(), result.end(), '\r', '\n');
    return result;
}

// Whether a lead byte 0xEF lacks one of its two following bytes.
bool IsCutOff(const char* text) {
    for (; *text; ++text) {
        if (*text == '\xEF' && (!text[1] || !text[2])) return true;
    }
    return false;
}

// The size of the parsed tree: the deepest element, the deepest one with children, the most attributes of an element.
struct Extent {
    int level = 0, filledLevel = 0, attributes = 0;

    void Measure(const TiXmlNode& parent, int at) {
        for (const TiXmlElement* one = parent.FirstChildElement(); one; one = one->NextSiblingElement()) {
            int count = 0;
            for (const TiXmlAttribute* attribute = one->FirstAttribute(); attribute; attribute = attribute->Next())
                ++count;
            attributes = std::max(attributes, count);
            level = std::max(level, at);
            if (one->FirstChild()) filledLevel = std::max(filledLevel, at);
            Measure(*one, at + 1);
        }
    }
};

template <class Record>
void Read(const ticpp::Element& device, const char* name, Record (*read)(const ticpp::Element&)) {
    try {
        read(*device.FirstChildElement(name));
    } catch (const ticpp::Exception&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const int file = memfd_create("result", 0);
    FuzzedDataProvider input(data, size);
    std::string text = Edited(input), refusal;
    if (ftruncate(file, 0) != 0 || pwrite(file, text.data(), text.size(), 0) < 0) std::abort();
    text = WithLineFeeds(text);
    const bool isCut = IsCutOff(text.c_str());
    text.append(3, '\0');
    try {
        Require(ReadXmlFile("/proc/self/fd/" + std::to_string(file)) == text,
                "the whole file is read, and its lines end in LF");
    } catch (const ticpp::Exception& exception) {
        refusal = exception.m_details;
    }
    const bool refusedAsCut = refusal.find(": A character is cut off at the end (line ") != std::string::npos;
    Require(isCut == refusedAsCut, "exactly the texts with an incomplete character are rejected for it");
    if (isCut) return 0;
    text.shrink_to_fit();  // so that AddressSanitizer detects a read beyond it
    TiXmlDocument parsed;
    parsed.Parse(text.c_str());
    Extent extent;
    extent.Measure(parsed, 1);
    if (refusal.find(": More than 200 levels of elements (line ") != std::string::npos)
        Require(extent.level > 200, "a text rejected for its levels has more than 200");
    else if (refusal.find(": More than 200 attributes in an element (line ") != std::string::npos)
        Require(extent.attributes > 200 || (extent.attributes == 200 && parsed.Error()),
                "a text rejected for its attributes has more than 200");
    else
        Require(refusal.empty() && extent.filledLevel <= 200 && extent.attributes <= 200,
                "an accepted text is within the limits");
    if (!refusal.empty() || parsed.Error()) return 0;
    ticpp::Document document;
    document.Parse(text);
    const ticpp::Element* root = document.FirstChildElement(false);
    const ticpp::Element* device = root ? root->FirstChildElement("device", false) : nullptr;
    if (!device) return 0;
    Read(*device, "AirDeviceDimData", ReadDimensions);
    Read(*device, "DpCurve", ReadPressureDropPoint);
    Read(*device, "QvDpLwPoints", ReadAirflowSoundPoint);
    Read(*device, "dLw", ReadSoundLevelDifference);
    Read(*device, "Shape", ReadShape);
    return 0;
}
