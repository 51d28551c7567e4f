// Custom objects: geometry, line types, creation from values and from a block reference, and the version they need.
#include <algorithm>
#include <cmath>

#include "CreatePartsFixture.h"

namespace {

using Texts = std::vector<std::string>;

class CreatePartsCustom : public CreatePartsTest {
 protected:
    static std::string NotCreated(const std::string& text, int line = 774) {
        return Report("Can't create custom object", line, "CreateCustomObject", text);
    }
    static std::string NoLinetypes(const std::string& text) {
        return Report("Can't set line type definitions to part", 617, "SetLinetypesForCustomObject", text);
    }
    static std::string AddBlock(const std::string& layer, double rotation = 0, double nx = 0, double ny = 0,
                                double nz = 1) {
        return bench::AddBlockReference({"", "AHU-2", layer, {10, 20, 30}, rotation, {nx, ny, nz}, {}});
    }
    // Every call of the server since the last look but the reading of its version.
    static Texts ServerCalls() {
        Texts calls = Calls("IKlimora200805::");
        calls.erase(std::remove_if(calls.begin(), calls.end(), [](auto& call) { return Has(call, "getVersion"); }),
                    calls.end());
        bench::ClearJournal();
        return calls;
    }
};

const char kSource[] = "/Part/Geometry/Source[0]/";
const char kTooOld[] = "Klimora version is too old";
const char kNotSet[] = "KLComUtils::SetPartAtt";
const std::string kMemory("\x01\x00\xFE", 3);
constexpr long kThreshold = 2005087;

std::string Set(const std::string& part, const std::string& path, const std::string& value) {
    return "setPartAtt '" + part + "' '" + path + "' '" + value + "' -> 0";
}

std::string Linetypes(const std::string& layer) {
    const std::string onLayer = "<Layer><Name>" + layer + "</Name></Layer>";
    return "<Linetypedef><Linetype id=\"1\">" + onLayer + "<Color>red</Color></Linetype><Linetype id=\"2\">" + onLayer +
           "<Color>green</Color></Linetype><Linetype id=\"3\">" + onLayer +
           "<Color>blue</Color></Linetype><Linetype id=\"4\">" + onLayer + "</Linetype></Linetypedef>";
}

std::string CustomCommand(const std::string& placement, const std::string& types, const std::string& layer) {
    return "<CreatePart><Part><Type><Define>EWAPART_CUSTOM</Define></Type><System><ID>1</ID></System>" + placement +
           types + "<Geometry><Layer><Name>" + layer + "</Name></Layer></Geometry></Part></CreatePart>";
}

const CustomObjectData kUnit = {1, "Fan & coil", "FC<1>", "V-UNIT"};
const std::string kUnitTypes =
    "<Productcode>FC&lt;1&gt;</Productcode><CustomPartType>Fan &amp; coil</CustomPartType>"
    "<ifcClassType>FC&lt;1&gt;</ifcClassType>";

// The four forms of geometry, applied to the air handling unit of the sample.
struct GeometryForm {
    const char* message;
    int line;
    int (*set)(KLComUtils& utils);
};
const GeometryForm kForms[] = {
    {"Can't set gm_model geometry for custom object", 481,
     [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", kMemory.data(), 3); }},
    {"Can't set kmodel file geometry for custom object", 511,
     [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", "C:\\unit.kmodel", "L=1200"); }},
    {"Can't set gm_model data for custom object", 553,
     [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", kMemory.data(), 3, "L=1200"); }},
    {"Can't set block geometry for custom object", 577,
     [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", "UNIT & BASE"); }},
};

TEST_F(CreatePartsCustom, EachFormOfGeometryInItsStepsAndTheirFailures) {
    Start(kThreshold);
    const Texts filled = {"setBinVariableSize 1 3 -> 0", "setBinVariableData 1 0 '0100FE' -> 0"};
    const std::string source = kSource, freed = "freeBinVariable 1 -> 0";
    const std::string params = Set("2A0", source + "KModel/Params", "L=1200");
    const Texts expected[] = {
        {filled[0], filled[1], Set("2A0", source + "gm_model/binvar", "1"), freed},
        {Set("2A0", source + "KModel/Filename", "C:\\unit.kmodel"), params},
        {filled[0], filled[1], Set("2A0", source + "KModel/binvar", "1"), freed, params},
        {Set("2A0", source + "Block/Name", "UNIT & BASE")},
    };
    const struct {
        const char* call;
        std::string text;
        size_t freed;  // the variable, once its size was set
    } failures[] = {{"setPartAtt", kNotSet, 1}, {"setBinVariableData", "", 1}, {"setBinVariableSize", "", 0}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(kForms[i].set(utils_), 0) << Printed();
        EXPECT_EQ(ServerCalls(), expected[i]) << kForms[i].message;
        const bool fromMemory = expected[i][0] == filled[0];
        for (const auto& failure : failures) {
            if (!fromMemory && failure.text.empty()) continue;
            bench::ClearFailures();
            bench::FailCall((std::string("IKlimora200805::") + failure.call).c_str(), 1, 7);
            EXPECT_EQ(kForms[i].set(utils_), -1);
            EXPECT_EQ(Printed(), Report(kForms[i].message, kForms[i].line, "SetGeometryForCustomObject", failure.text));
            EXPECT_EQ(Sent("freeBinVariable").size(), fromMemory ? failure.freed : 0u) << failure.call;
        }
    }
    bench::ClearFailures();
    bench::FailCall("IKlimora200805::setPartAtt", 2, 7);  // the parameters
    EXPECT_EQ(kForms[2].set(utils_), -1);
    ServerCalls();
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", nullptr, 3), -1);
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", kMemory.data(), 0), -1);
    EXPECT_EQ(ServerCalls(), Texts{}) << "nothing to copy";
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", std::string("u.kmodel"), ""), 0);
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", kMemory.data(), 3, ""), 0);
    EXPECT_EQ(ServerCalls().size(), 1u + 4u) << "empty parameters are not set";
}

TEST_F(CreatePartsCustom, CreationSetsTheLinetypesOfTheSameLayer) {
    Start(kThreshold);
    const std::string special = "<CustomPartType>Special</CustomPartType>";
    const struct {
        const char *type, *code, *layer;
        std::string written, layerWritten;
        bool linetypesTaken;
    } cases[] = {
        {"Fan & coil", "FC<1>", "V-1 %s", kUnitTypes, "V-1 %s", true},
        {"", "", "V", special + "<ifcClassType>Special</ifcClassType>", "V", true},
        {"T", "", "V", "<CustomPartType>T</CustomPartType><ifcClassType>Special</ifcClassType>", "V", true},
        {"", "C", "V", "<Productcode>C</Productcode>" + special + "<ifcClassType>C</ifcClassType>", "V", true},
        // The layer is escaped in the command alone, and the server takes no bare ampersand.
        {"", "", "a&b", special + "<ifcClassType>Special</ifcClassType>", "a&amp;b", false},
    };
    for (const auto& c : cases) {
        const std::string part = utils_.CreateCustomObject(Placement(), {1, c.type, c.code, c.layer});
        const Texts calls = ServerCalls();
        ASSERT_GE(calls.size(), 2u) << Printed();
        EXPECT_EQ(calls[0],
                  "createPart " + CustomCommand(PlacementText(), c.written, c.layerWritten) + " -> '" + part + "' 0");
        const std::string linetypes = Set(part, "/Part/Geometry/Linetypedef[0]", Linetypes(c.layer));
        EXPECT_EQ(calls[1] == linetypes, c.linetypesTaken) << calls[1];
        EXPECT_EQ(Printed(), c.linetypesTaken ? "" : NoLinetypes(kNotSet));
    }
}

TEST_F(CreatePartsCustom, CreationWithAGeometryModel) {
    Start();
    const std::string part = utils_.CreateCustomObject(Placement(), kUnit, kMemory.data(), 3);
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Geometry/Source[0]/gm_model/Data", true), "0100FE");
    ServerCalls();
    bench::FailCall("IKlimora200805::createPart", 2, 7);
    EXPECT_EQ(utils_.CreateCustomObject(Placement(), kUnit, kMemory.data(), 3), "");
    EXPECT_EQ(ServerCalls().size(), 1u) << "no geometry without a part";
    EXPECT_EQ(Printed(), NotCreated("", 667));
}

TEST_F(CreatePartsCustom, EveryOperationNeedsItsVersion) {
    for (const long version : {kThreshold - 1, 0L}) {
        utils_.Disconnect();
        if (version) Start(version);  // else without a connection
        for (const GeometryForm& form : kForms) {
            EXPECT_EQ(form.set(utils_), -1);
            EXPECT_EQ(Printed(), Report(form.message, form.line, "SetGeometryForCustomObject", kTooOld));
        }
        EXPECT_EQ(utils_.SetLinetypesForCustomObject("2A0", "V"), -1);
        EXPECT_EQ(Printed(), NoLinetypes(kTooOld));
        EXPECT_EQ(utils_.CreateCustomObject(Placement(), kUnit), "");
        EXPECT_EQ(Printed(), NotCreated(kTooOld, 667));
        EXPECT_EQ(utils_.CreateCustomObject("2A0", kUnit, true), "");
        EXPECT_EQ(Printed(), NotCreated(kTooOld));
        EXPECT_EQ(ServerCalls(), Texts{});
    }
}

TEST_F(CreatePartsCustom, TakesPlaceLayerAndBlockOfTheReference) {
    Start(kThreshold);
    const double quarter = std::acos(-1.0) / 2;
    const struct {
        double rotation, normal[3];
        const char *direction, *normalText;
    } cases[] = {
        {0, {0, 0, 1}, "1.000000 0.000000 0.000000", "0.000000 0.000000 1.000000"},
        {quarter, {0, 0, 1}, "0.000000 1.000000 0.000000", "0.000000 0.000000 1.000000"},
        {-quarter, {0, 1, 0}, "0.000000 0.000000 1.000000", "0.000000 1.000000 0.000000"},
    };
    for (const auto& c : cases) {
        const std::string block = AddBlock("V-BLOCK", c.rotation, c.normal[0], c.normal[1], c.normal[2]);
        bench::ClearJournal();
        const std::string part = utils_.CreateCustomObject(block, kUnit, false);
        const std::string placement = std::string("<Position><WCS>10.000000 20.000000 30.000000</WCS></Position>") +
                                      "<Direction><WCS>" + c.direction + "</WCS></Direction><Normal><WCS>" +
                                      c.normalText + "</WCS></Normal>";
        EXPECT_EQ(ServerCalls(),
                  (Texts{"getPartAtt '" + block + "' '/Part/Type/Define' -> -102",
                         "createPart " + CustomCommand(placement, kUnitTypes, "V-BLOCK") + " -> '" + part + "' 0",
                         Set(part, "/Part/Geometry/Linetypedef[0]", Linetypes("V-BLOCK")),
                         Set(part, "/Part/Geometry/Source[0]/Block/Name", "AHU-2")}));
    }
}

TEST_F(CreatePartsCustom, LayerNameIsCutAndTheGivenOneServesWhenThereIsNone) {
    Start();
    const std::string block = AddBlock(std::string(140, 'L'));
    const std::string part = utils_.CreateCustomObject(block, kUnit, true);
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Geometry/Layer/Name", true), std::string(128, 'L'));
    bench::FailCall("AcDbEntity::layer", 2);
    const std::string second = utils_.CreateCustomObject(block, kUnit, true);
    EXPECT_EQ(utils_.GetPartAtt(second, "/Part/Geometry/Layer/Name", true), "V-UNIT");
}

TEST_F(CreatePartsCustom, CustomObjectIsLeftAloneAndTheQuestionIsSilent) {
    Start();
    utils_.SetTrace(true, true, true);
    EXPECT_EQ(utils_.CreateCustomObject("2A0", kUnit, true), "");
    EXPECT_EQ(utils_.CreateCustomObject("FFFF", kUnit, true), "");
    EXPECT_EQ(Printed(), NotCreated("Can't get block reference object id."))
        << "no trace of the questions for the type";
    EXPECT_TRUE(Sent("createPart").empty());
    bool keep = false, failures = false, all = false;
    utils_.GetTrace(&keep, &failures, &all);
    EXPECT_TRUE(keep && failures && all);
    utils_.SetTrace(false, false, false);
}

TEST_F(CreatePartsCustom, EachStepHasItsMessage) {
    Start();
    const std::string block = AddBlock("0");
    const struct {
        std::string handle;
        const char* call;
        int ordinal;
        const char* message;
        size_t created;
    } cases[] = {
        {"FFFF", nullptr, 0, "Can't get block reference object id.", 0},
        {block, "AcDbDatabase::getAcDbObjectId", 1, "Can't get block reference object id.", 0},
        {block, "acdbOpenObject", 1, "Can't open block reference object for reading.", 0},
        {"2A3", nullptr, 0, "Can't cast to block reference", 0},
        {block, "acdbOpenObject", 2, "Can't open block table for reading", 1},
        {block, "AcDbBlockReference::blockTableRecord", 1, "Can't open block table for reading", 1},
        {block, "AcDbSymbolTableRecord::getName", 1, "Can't get block name", 1},
    };
    for (const auto& c : cases) {
        bench::ClearFailures();
        if (c.call) bench::FailCall(c.call, c.ordinal);
        const std::string part = utils_.CreateCustomObject(c.handle, kUnit, true);
        EXPECT_EQ(Printed(), NotCreated(c.message));
        const Texts created = Sent("createPart");
        ASSERT_EQ(created.size(), c.created) << c.message;
        EXPECT_EQ(part.empty(), created.empty()) << c.message;
        for (const std::string& call : created)
            EXPECT_TRUE(Has(call, (" -> '" + part + "' 0").c_str())) << "the part that was made comes back";
    }
    bench::ClearFailures();
    bench::FailCall("IKlimora200805::createPart", 1, 7);
    EXPECT_EQ(utils_.CreateCustomObject(block, kUnit, true), "");
    EXPECT_EQ(Printed(), NotCreated("", 667));
    EXPECT_TRUE(Sent("setPartAtt").empty()) << "no geometry without a part";
    bench::CloseDrawing();
    EXPECT_EQ(utils_.CreateCustomObject(block, kUnit, true), "");
    EXPECT_EQ(Printed(), NotCreated("Can't get working database."));
}

}  // namespace
