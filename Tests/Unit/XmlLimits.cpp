// The limits on XML files: what is rejected, with which message, and that the scanner finds exactly the elements that
// the parser finds.
#include "Util/XmlLimits.h"

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

TEST(XmlLimits, RejectsDocumentsBeyondALimit) {
    const std::string attributes = "x.xml: More than 200 attributes in an element (line 1, column ",
                      levels = "x.xml: More than 200 levels of elements (line ",
                      nodes = "x.xml: More than 100000 elements, texts and comments (line ",
                      cut = "x.xml: A character is cut off at the end (line 1, column ";
    const std::pair<std::string, std::string> cases[] = {
        {Nested(200), ""},
        {Nested(201), levels + "1, column 601)"},
        {"<a>\n" + Repeated("<b/>", 1000) + Repeated("<c></c>", 1000) + "\n " + Nested(200) + "</a>",
         levels + "3, column 599)"},
        {WithAttributes(200), ""},
        {WithAttributes(201), attributes + "1694)"},
        {WithAttributes(200).substr(0, 1693), ""},  // the text ends: the parser says so
        {"<r>" + Repeated(WithAttributes(150), 3) + "</r>", ""},
        {"<r>" + Repeated("<b>x</b>", 49999) + "<c/></r>", ""},
        {"<r>" + Repeated("<b>x</b>", 49999) + "<c/>\n\nx</r>", nodes + "3, column 1)"},
        {"<r>\xEF", cut + "4)"},
        {"\xEF\xBB\xBF<\xEF/", cut + "5)"},
        {"<r>\xEF\xBB", cut + "4)"},
        {"<r>\xEF\xBB\xBF", ""},
        {std::string("<r>\xEF\0\xBF", 6), cut + "4)"},
        {std::string(16 * 1024 * 1024, ' '), ""},
        {std::string(16 * 1024 * 1024, '\n') + " ", "x.xml: More than 16 MB (line 16777217, column 1)"},
    };
    for (const auto& [xml, refusal] : cases)
        EXPECT_EQ(Refusal(xml), refusal);
}

// The flag says whether the parser reads more than 200 of the 300 start tags as elements, so that the limit rejects the
// text.
TEST(XmlLimits, FindsTheElementsThatTheParserFinds) {
    const std::string many = Repeated("<a>", 300);
    const std::pair<std::string, bool> cases[] = {
        {"<r><!--" + many + "--></r>", false},
        {"<r><![CDATA[" + many + "]]></r>", false},
        {"<r x=\"" + many + "\" y='" + many + "'/>", false},
        {"<?xml version=\"1.0\" encoding='" + many + "'?><r/>", false},
        {"<r x='\"' y=\"'\">" + many, true},
        {"<r x = \">\">" + many, true},
        {"<r x = \">\"/ >" + many, false},  // the parser stops at the slash
        {"<_a.b:c-d\x7F x=1/>" + many, true},
        {"<a><r x=1'>" + many, false},
        {"<r x=>" + many, true},
        {"<r><!" + many, true},  // a declaration ends at the first ">"
        {"<r><?p " + many, true},
        {"<r><!---->" + many, true},
        {"<r><!-->" + many, false},
        {"<r><![CDATA[]]>" + many, true},
        {"<!-- </a> -->" + Repeated("<a><!-- </a> -->", 201), true},
        {Repeated("<a x='</a>'>", 201), true},
        {Repeated("<a>x</a >", 500), false},
        {"<a><r></x>" + many, false},
        {"<r></rr>" + many, false},
        {"<r x='1' y='2' x='3'>" + many, false},
        {many + "\xE2", true},
        // In UTF-8 a lead byte takes what follows with it, as in the parser; in other encodings it does not.
        {"<?xml version='1.0'?><r x='\xE2x'><!--'>" + many, true},
        {"<?xml version='1.0' encoding='UTF-8'?><r x='\xF0xx'><!--'>" + many, true},
        {"<?xml encoding='utf8'?><r x='\xC2'><!--'>" + many, true},
        {"<?xml?><r x='\xC2x' y='\xE2xx' z='\xF0xxx'>" + many, true},  // and no more than its own
        {"<?xml?><r x='\xC1'><!--'>" + many, false},
        {"<?xml?><r x='\xF5'><!--'>" + many, false},
        {"<a><?xml?><r x='\xE2x'><!--'>" + many, false},  // too late: the encoding is fixed
        {"<?xml version='1.0' encoding='Latin-1'?><r x='\xE2'><!--'>" + many, false},
        {"\xEF\xBB\xBF<?xml encoding='Latin-1'?><r x='\xE2'><!--'>" + many, true},
        {"<r x='\xE2'><!--'>" + many, false},
        {"<r x='&#x><!--x41;'>" + many, true},
        {"<r x='&#><!--#65;'>" + many, true},
        {"<r x='&#xg;'>" + many, false},
        {"<r x='&#x41'>" + many, false},
        {"<?xml", false},
        {"<?xml?><r \xEF\xBB\xBF x='1'>" + many, true},
        {"<r \xEF\xBB\xBF='1'>" + many, true},
        {"<?xml?><\xEF\xBB\xBF\nr>" + many, true},  // a mark before a name is a blank
        {"<\xEF\xBB\xBF r>" + many, false},
    };
    for (const auto& [xml, refused] : cases)
        EXPECT_EQ(!Refusal(xml).empty(), refused) << xml.substr(0, 60);
}

TEST(XmlLimits, ReadsWholeFiles) {
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
    EXPECT_EQ(ReadXmlFile(path), std::string("<r>\n\xE2\0\0\0", 8))
        << "the parser skips three bytes from the last one on";
}

TEST(XmlLimits, ConvertsLineEndsToLf) {
    const TestFolder folder;
    const std::string path = folder.file("x.xml");
    WriteWholeFile(path, "<r a='1\r\n\r2'>\r\r\n<![CDATA[3\r]]>\r\n");
    EXPECT_EQ(ReadXmlFile(path).c_str(), std::string("<r a='1\n\n2'>\n\n<![CDATA[3\n]]>\n"));
    WriteWholeFile(path, "<r>\r\n\r" + Nested(201));
    EXPECT_EQ(Refused([&] { ReadXmlFile(path); }), path + ": More than 200 levels of elements (line 3, column 598)");
    WriteWholeFile(path, Repeated("\r\n", 8 * 1024 * 1024) + " ");
    EXPECT_NE(Refused([&] { ReadXmlFile(path); }).find("More than 16 MB"), std::string::npos)
        << "the size on disk counts";
}

// A recursive scanner would overflow its stack.
TEST(XmlLimits, ScansAnyNumberOfNodesWithoutRecursion) {
    for (const std::string node : {"<!---->", "<![CDATA[]]>", "<?p?>", "<!d>", "<?xml?>", "<a/>"}) {
        const std::string refusal = Refusal("<r>" + Repeated(node, 100'000));
        const std::string column = std::to_string(4 + 99'999 * node.size());
        EXPECT_EQ(refusal, "x.xml: More than 100000 elements, texts and comments (line 1, column " + column + ")");
    }
}

TEST(XmlLimits, ScansSixteenMegabytesInLinearTime) {
    const std::string text(1000, 'x');
    const std::string xml =
        "<r>" + Repeated("<point qv=\"1\"><dp>" + text + "</dp></point>\n", 16'000'000 / 1040) + "</r>";
    const auto usedByThread = [] {
        FILETIME created, exited, kernel, user;
        GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
        return (static_cast<ULONGLONG>(user.dwHighDateTime) << 32 | user.dwLowDateTime) / 10000;
    };
    const ULONGLONG start = usedByThread();
    EXPECT_EQ(Refusal(xml), "");
    EXPECT_LT(usedByThread() - start, 2000u) << "milliseconds of the thread's own time; 200 are usual";
}

}  // namespace
