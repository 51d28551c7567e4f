// What the server publishes for a choice, in the form that makes a product record, and the database files it names.
#include <fstream>
#include <iterator>
#include <set>

#include "BenchControl.h"
#include "Catalogue.h"
#include "KbaseFile.h"
#include "WebServer.h"
#include "WebServerClient.h"
#include "gmock/gmock.h"
#include "tinyxml.h"

using testing::HasSubstr;

namespace {

const char kSession[] = "0F1E2D3C4B5A69788796A5B4C3D2E1F0";
const char kServer[] = "http://klimora.sorvik.example";

std::string TextOf(const TiXmlElement* parent, const char* name) {
    const TiXmlElement* child = parent ? parent->FirstChildElement(name) : nullptr;
    return child && child->GetText() ? child->GetText() : "";
}

int CountOf(const TiXmlElement* parent, const char* name) {
    int count = 0;
    for (const TiXmlElement* one = parent->FirstChildElement(name); one; one = one->NextSiblingElement(name))
        ++count;
    return count;
}

class WebServerResults : public testing::Test {
 protected:
    WebServerResults() : server_(SORVIK_CATALOGUE) { server_.UseAsProxy(); }
    ~WebServerResults() override { bench::ResetBench(); }

    static Fetched Choose(const std::string& products) {
        return Post(std::string("/klimora/choose?klsid=") + kSession + "&product=" + products);
    }
    static Fetched Result() { return Fetch(std::string("/klimora/export/") + kSession + ".xml"); }

    // The root of the published result, which lives until the next call.
    const TiXmlElement* Published(const std::string& products) {
        EXPECT_EQ(Choose(products).status, 200u) << products;
        document_.Clear();
        document_.Parse(Result().body.c_str(), nullptr, TIXML_ENCODING_UTF8);
        EXPECT_FALSE(document_.Error()) << document_.ErrorDesc();
        return document_.RootElement();
    }

    bench::WebServer server_;
    TiXmlDocument document_;
};

TEST_F(WebServerResults, EveryProductOfTheCatalogueHasWhatARecordNeeds) {
    bench::KbaseFile models;
    std::string error;
    const std::string catalogue = SORVIK_CATALOGUE;
    ASSERT_TRUE(models.Read(catalogue.substr(0, catalogue.rfind('/')) + "/sorvik.kpd", error));
    std::set<std::string> branches;
    std::set<std::string> shapes;
    for (const bench::Silencer& silencer : bench::ReadCatalogue(catalogue).silencers) {
        SCOPED_TRACE(silencer.id);
        const TiXmlElement* device = Published(silencer.id)->FirstChildElement("device");
        ASSERT_TRUE(device);
        EXPECT_EQ(TextOf(device, "ID"), silencer.id);
        EXPECT_NE(TextOf(device, "ProductCodeALL"), "");
        EXPECT_THAT(TextOf(device, "DescriptionGBR"), HasSubstr(silencer.length + " mm"));
        EXPECT_THAT(TextOf(device, "DescriptionGBR"), HasSubstr(silencer.d1));
        std::string model = TextOf(device, "KModelID");
        for (char& c : model)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        EXPECT_TRUE(models.Find("KMD", model)) << model;
        const TiXmlElement* dimensions = device->FirstChildElement("AirDeviceDimData");
        for (const char* name : {"Fnc", "D1", "D2", "Qvmin", "Qvmax", "Dpmin", "Dpmax"})
            EXPECT_NE(TextOf(dimensions, name), "") << name;
        const std::string branch = TextOf(dimensions, "Fnc");
        EXPECT_EQ(CountOf(device, "DpCurve"), branch == "10" || branch == "110" ? 1 : 0);
        EXPECT_EQ(CountOf(device, "aDpCurves"), branch == "20" || branch == "120" ? 4 : 0);
        EXPECT_EQ(CountOf(device, "QvDpLwPoints"), 3);
        EXPECT_EQ(CountOf(device, "dLw"), 1);
        EXPECT_EQ(CountOf(device, "Shape"), 1);
        branches.insert(branch);
        shapes.insert(TextOf(device, "Shape"));
    }
    EXPECT_EQ(branches, (std::set<std::string>{"10", "20", "30", "110", "120"}));
    EXPECT_EQ(shapes, (std::set<std::string>{"0", "1"}));
}

TEST_F(WebServerResults, FiguresAndTextsOfOneProduct) {
    const TiXmlElement* root = Published("SRK-200-900");
    const TiXmlElement* device = root->FirstChildElement("device");
    ASSERT_TRUE(device);
    EXPECT_EQ(TextOf(root, "error") + TextOf(root, "warning"), "");
    EXPECT_EQ(TextOf(device, "DescriptionSWE"), "Cirkulär ljuddämpare SRK 200 med centrumbaffel, längd 900 mm");
    EXPECT_EQ(TextOf(device, "kpdWeblink"), std::string(kServer) + "/products?series=srk");
    EXPECT_EQ(TextOf(device, "kpdWeblinkCHE"), std::string(kServer) + "/products?series=srk&country=che");
    EXPECT_EQ(TextOf(device->FirstChildElement("KmodelParams"), "DB"), "100");
    const TiXmlElement* curve = device->FirstChildElement("aDpCurves");
    EXPECT_EQ(TextOf(curve, "A") + ' ' + TextOf(curve, "Qv") + ' ' + TextOf(curve, "Dp"), "0 71.2 4.9");
    const TiXmlElement* noise = device->FirstChildElement("QvDpLwPoints");
    EXPECT_EQ(TextOf(noise, "Qv") + ' ' + TextOf(noise, "Dp"), "142.5 19.8");
    const char* const bands[] = {"Lw63", "Lw125", "Lw250", "Lw500", "Lw1000", "Lw2000", "Lw4000", "Lw8000"};
    const char* const losses[] = {"5", "9", "18", "31", "47", "50", "42", "30"};
    for (int band = 0; band < 8; ++band)
        EXPECT_EQ(TextOf(device->FirstChildElement("dLw"), bands[band]), losses[band]);
}

TEST_F(WebServerResults, TheDatabaseFilesLieWhereTheResultSays) {
    const TiXmlElement* root = Published("SRC-200-600");
    for (const auto& [element, file] : {std::pair("DdkFileUrl", "sorvik.ddk"), std::pair("KpdFileUrl", "sorvik.kpd")}) {
        const std::string address = TextOf(root, element);
        std::ifstream sample(std::string(SORVIK_SAMPLE_FOLDER "/") + file, std::ios::binary);
        ASSERT_EQ(address.substr(0, sizeof kServer - 1), kServer);
        EXPECT_EQ(Fetch(address.substr(sizeof kServer - 1)).body,
                  std::string(std::istreambuf_iterator<char>(sample), std::istreambuf_iterator<char>()));
    }
}

TEST_F(WebServerResults, ChoicesBelongToTheirSession) {
    EXPECT_EQ(Result().status, 404u);
    EXPECT_EQ(Choose("SRC-200-600,NONE").status, 404u);
    EXPECT_EQ(Result().status, 404u) << "half a choice was published";
    EXPECT_EQ(CountOf(Published("SRC-200-600,SRC-160-600"), "device"), 2);
    EXPECT_EQ(Fetch("/klimora/export/00000000000000000000000000000000.xml").status, 404u);
    for (const char* path : {"/klimora/export/0f1e2d3c4b5a69788796a5b4c3d2e1f0.xml", "/klimora/export/.xml",
                             "/klimora/export/0F1E2D3C4B5A69788796A5B4C3D2E1F0"})
        EXPECT_EQ(Fetch(path).status, 400u) << path;
    EXPECT_EQ(Post("/klimora/choose?klsid=1&product=SRC-200-600").status, 400u);
}

TEST_F(WebServerResults, EditsReachTheResultUntilTheyAreForgotten) {
    server_.PublishWith("error", "No licence & no <price>");
    server_.PublishWith("warning", "Discontinued");
    const TiXmlElement* root = Published("SRC-200-600");
    EXPECT_EQ(TextOf(root, "error"), "No licence & no <price>");
    EXPECT_EQ(TextOf(root, "warning"), "Discontinued");
    EXPECT_EQ(CountOf(root, "device"), 1);
    server_.PublishInstead("<broken");
    EXPECT_EQ(Result().body, "<broken");
    server_.Reset();
    EXPECT_EQ(TextOf(Published("SRC-200-600"), "error"), "");
}

}  // namespace
