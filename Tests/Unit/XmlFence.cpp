// The fence before the XML parser: what it refuses, with which words, and that it sees elements where the parser sees
// them and nowhere else.
#include "Util/XmlFence.h"

#include "ImportPatch.h"
#include "TestFiles.h"
#include "gtest/gtest.h"
#include "ticpp.h"

namespace {

std::string Repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}
std::string Nested(int levels) {
    return Repeated("<a>", levels) + Repeated("</a>", levels);
}
std::string WithAttributes(int count) {
    std::string element = "<a";
    for (int i = 0; i < count; ++i)
        element += " n" + std::to_string(i) + "='1'";
    return element + "/>";
}
template <class Work>
std::string Refused(Work work) {
    try {
        work();
        return "";
    } catch (const ticpp::Exception& exception) {
        return exception.m_details;
    }
}
std::string Refusal(const std::string& xml) {
    return Refused([&] { CheckXmlLimits(xml, "x.xml"); });
}

TEST(XmlFence, RefusesWhatNoResultCanBe) {
    const std::string attributes = "x.xml: More than 200 attributes in an element (line 1, column ",
                      levels = "x.xml: More than 200 levels of elements (line ";
    const std::pair<std::string, std::string> cases[] = {
        {Nested(200), ""},
        {Nested(201), levels + "1, column 601)"},
        {"<a>\n" + Repeated("<b/>", 1000) + Repeated("<c></c>", 1000) + "\n " + Nested(200) + "</a>",
         levels + "3, column 599)"},
        {WithAttributes(200), ""},
        {WithAttributes(201), attributes + "1694)"},
        {"<r>" + Repeated(WithAttributes(150), 3) + "</r>", ""},
        {std::string(16 * 1024 * 1024, ' '), ""},
        {std::string(16 * 1024 * 1024, '\n') + " ", "x.xml: More than 16 MB (line 16777217, column 1)"},
    };
    for (const auto& [xml, refusal] : cases)
        EXPECT_EQ(Refusal(xml), refusal);
}

// Each piece holds 300 start tags that are none, or hides what is one: `seen` says whether the parser goes into the
// 201 elements behind it.
TEST(XmlFence, SeesElementsWhereTheParserSeesThem) {
    const std::string many = Repeated("<a>", 300);
    const std::pair<std::string, bool> cases[] = {
        {"<r><!--" + many + "--></r>", false},
        {"<r><![CDATA[" + many + "]]></r>", false},
        {"<r x=\"" + many + "\" y='" + many + "'/>", false},
        {"<?xml version=\"1.0\" encoding='" + many + "'?><r/>", false},
        {"<r x='\"' y=\"'\">" + many, true},
        {"<r x = \">\"/ >" + many, false},  // the parser gives up at the stroke
        {"<_a.b:c-d\x7F x=1/>" + many, true},
        {"<r x=1'>" + many, false},
        {"<r x=>" + many, true},
        {"<r><!" + many, true},  // a declaration ends at the first ">"
        {"<r><?p " + many, true},
        {"<r><!---->" + many, true},
        {"<r><!-->" + many, false},
        {"<r><![CDATA[]]>" + many, true},
        {"<!-- </a> -->" + Repeated("<a><!-- </a> -->", 201), true},
        {Repeated("<a x='</a>'>", 201), true},
        {Repeated("<a>x</a >", 500), false},
        {"<r></x>" + many, false},
        {"<r></rr>" + many, false},
        {"<r x='1' y='2' x='3'>" + many, false},
        {many + "\xE2", true},
        // In UTF-8 a lead byte takes what follows with it, as the parser has it; in other codings it does not.
        {"<?xml version='1.0'?><r x='\xE2x'><!--'>" + many, true},
        {"<?xml version='1.0' encoding='UTF-8'?><r x='\xF0xx'><!--'>" + many, true},
        {"<?xml encoding='utf8'?><r x='\xC2'><!--'>" + many, true},
        {"<?xml?><r x='\xC2x' y='\xE2xx' z='\xF0xxx'>" + many, true},  // and no more than its own
        {"<?xml?><r x='\xC1'><!--'>" + many, false},
        {"<?xml?><r x='\xF5'><!--'>" + many, false},
        {"<a><?xml?><r x='\xE2x'><!--'>" + many, false},  // too late to say it
        {"<?xml version='1.0' encoding='Latin-1'?><r x='\xE2'><!--'>" + many, false},
        {"\xEF\xBB\xBF<?xml encoding='Latin-1'?><r x='\xE2'><!--'>" + many, true},
        {"<r x='\xE2'><!--'>" + many, false},
        {"<r x='&#x><!--x41;'>" + many, true},
        {"<r x='&#><!--#65;'>" + many, true},
        {"<r x='&#xg;'>" + many, false},
        {"<?xml?><r \xEF\xBB\xBF x='1'>" + many, true},
        {"<r \xEF\xBB\xBF='1'>" + many, true},
    };
    for (const auto& [xml, refused] : cases)
        EXPECT_EQ(!Refusal(xml).empty(), refused) << xml.substr(0, 60);
}

TEST(XmlFence, FilesAreReadWhole) {
    const TestFolder folder;
    const std::string path = folder.file("x.xml");
    const auto refusal = [&] { return Refused([&] { ReadXmlFile(path); }); };
    EXPECT_EQ(refusal(), path + ": Failed to open file");
    WriteWholeFile(path, Nested(201));
    {
        const ImportPatch patch(
            "fread", +[](void*, size_t, size_t count, std::FILE*) { return count - 1; });
        EXPECT_EQ(refusal(), path + ": Failed to read file");
    }
    EXPECT_EQ(refusal(), path + ": More than 200 levels of elements (line 1, column 601)");
    WriteWholeFile(path, std::string(16 * 1024 * 1024 + 5, ' '));
    EXPECT_EQ(refusal(), path + ": More than 16 MB (line 1, column 16777217)");
    WriteWholeFile(path, "<r>\r\n\xE2");
    EXPECT_EQ(ReadXmlFile(path), std::string("<r>\r\n\xE2\0\0\0", 9))
        << "the parser steps over three bytes from the last one";
}

TEST(XmlFence, SixteenMegabytesPassQuickly) {
    const std::string xml =
        "<r>" + Repeated("<point qv=\"1\"><dp>12.5</dp></point>\r\n", 16 * 1024 * 1024 / 40) + "</r>";
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(Refusal(xml), "");
    EXPECT_LT(GetTickCount64() - start, 2000u) << "0.2 s on a machine with nothing else to do";
}

}  // namespace
