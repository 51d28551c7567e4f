// Custom objects: geometry, line types, creation from values and from a block reference, and the version they need.
#include <cmath>

#include "CreatePartsFixture.h"

namespace {

using CreatePartsCustom = CreatePartsTest;
using Texts = std::vector<std::string>;

const char kSource[] = "/Part/Geometry/Source[0]/";
const char kTooOld[] = "Klimora version is too old";
const char kNotSet[] = "KLComUtils::SetPartAtt";
const std::string kMemory("\x01\x00\xFE", 3);
constexpr long kThreshold = 2005087;

// Every call of the server but the reading of its version.
Texts ServerCalls() {
    Texts calls;
    for (const std::string& line : bench::Journal()) {
        const std::string prefix = "IKlimora200805::";
        const bool isServers = line.compare(0, prefix.size(), prefix) == 0;
        if (isServers && line.find("::getVersion") == std::string::npos) calls.push_back(line.substr(prefix.size()));
    }
    bench::ClearJournal();
    return calls;
}

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

CustomObjectData Unit(const std::string& layer = "V-UNIT") {
    CustomObjectData object;
    object.systemId = 1;
    object.customPartType = "Fan & coil";
    object.productCode = "FC<1>";
    object.layer = layer;
    return object;
}
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

TEST_F(CreatePartsCustom, EachFormOfGeometryInItsSteps) {
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
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(kForms[i].set(utils_), 0) << Printed();
        EXPECT_EQ(ServerCalls(), expected[i]) << kForms[i].message;
    }
    EXPECT_EQ(utils_.GetPartAtt("2A0", source + "gm_model/Data", true), "0100FE");
    EXPECT_EQ(utils_.GetPartAtt("2A0", source + "KModel/Data", true), "0100FE");
    EXPECT_EQ(Printed(), "");
}

TEST_F(CreatePartsCustom, EmptyParametersAreNotSet) {
    Start();
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", std::string("u.kmodel"), ""), 0);
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", kMemory.data(), 3, ""), 0);
    for (const std::string& call : ServerCalls())
        EXPECT_EQ(call.find("Params"), std::string::npos) << call;
}

TEST_F(CreatePartsCustom, FailedSettingIsReportedAndItsVariableFreed) {
    Start();
    for (const GeometryForm& form : kForms) {
        bench::ClearFailures();
        bench::FailCall("IKlimora200805::setPartAtt", 1, 7);
        EXPECT_EQ(form.set(utils_), -1);
        EXPECT_EQ(Printed(), Report(form.message, form.line, "SetGeometryForCustomObject", kNotSet));
        EXPECT_EQ(bench::BinaryVariable(1), "");
    }
    EXPECT_EQ(Sent("freeBinVariable").size(), 2u);
    bench::ClearFailures();
    bench::FailCall("IKlimora200805::setPartAtt", 2, 7);  // the parameters
    EXPECT_EQ(kForms[2].set(utils_), -1);
    EXPECT_EQ(Printed(), Report(kForms[2].message, 553, "SetGeometryForCustomObject", kNotSet));
}

TEST_F(CreatePartsCustom, DataThatCannotBeCopiedAreNotSet) {
    Start();
    for (const char* const call : {"IKlimora200805::setBinVariableSize", "IKlimora200805::setBinVariableData"}) {
        for (const int form : {0, 2}) {
            bench::ClearFailures();
            bench::FailCall(call, 1, 7);
            EXPECT_EQ(kForms[form].set(utils_), -1);
            EXPECT_EQ(Printed(), Report(kForms[form].message, kForms[form].line, "SetGeometryForCustomObject", ""));
        }
    }
    EXPECT_EQ(Calls("IKlimora200805::freeBinVariable ").size(), 2u) << "where the size was set, and only there";
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", nullptr, 3), -1);
    EXPECT_EQ(utils_.SetGeometryForCustomObject("2A0", kMemory.data(), 0), -1);
    EXPECT_TRUE(Sent("setPartAtt").empty());
}

TEST_F(CreatePartsCustom, LinetypesOnOneLayerAsItStands) {
    Start(kThreshold);
    EXPECT_EQ(utils_.SetLinetypesForCustomObject("2A0", "V-1 %s"), 0) << Printed();
    EXPECT_EQ(ServerCalls(), Texts{Set("2A0", "/Part/Geometry/Linetypedef[0]", Linetypes("V-1 %s"))});
    EXPECT_EQ(utils_.SetLinetypesForCustomObject("2A0", "a & b"), -1) << "the server takes no bare ampersand";
    EXPECT_EQ(Printed(),
              Report("Can't set line type definitions to part", 617, "SetLinetypesForCustomObject", kNotSet));
}

TEST_F(CreatePartsCustom, CreationSetsTheLinetypesOfTheSameLayer) {
    Start(kThreshold);
    const std::string part = utils_.CreateCustomObject(Placement(), Unit());
    EXPECT_EQ(ServerCalls(),
              (Texts{"createPart " + CustomCommand(PlacementText(), kUnitTypes, "V-UNIT") + " -> '" + part + "' 0",
                     Set(part, "/Part/Geometry/Linetypedef[0]", Linetypes("V-UNIT"))}));
    EXPECT_TRUE(utils_.IsPartTypeDefine(part, "EWAPART_CUSTOM"));
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Productcode", true), "FC<1>");
}

TEST_F(CreatePartsCustom, EmptyTypesAreSpecial) {
    Start();
    const std::string special = "<CustomPartType>Special</CustomPartType>";
    const struct {
        const char *type, *code;
        std::string written;
    } cases[] = {
        {"", "", special + "<ifcClassType>Special</ifcClassType>"},
        {"T", "", "<CustomPartType>T</CustomPartType><ifcClassType>Special</ifcClassType>"},
        {"", "C", "<Productcode>C</Productcode>" + special + "<ifcClassType>C</ifcClassType>"},
    };
    for (const auto& c : cases) {
        CustomObjectData object = Unit();
        object.customPartType = c.type;
        object.productCode = c.code;
        ExpectCreated(utils_.CreateCustomObject(Placement(), object),
                      CustomCommand(PlacementText(), c.written, "V-UNIT"));
    }
}

TEST_F(CreatePartsCustom, LayerIsEscapedInTheCommandAlone) {
    Start();
    const std::string part = utils_.CreateCustomObject(Placement(), Unit("a&b"));
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Geometry/Layer/Name", true), "a&b") << "the part is there nevertheless";
    EXPECT_EQ(Printed(),
              Report("Can't set line type definitions to part", 617, "SetLinetypesForCustomObject", kNotSet));
}

TEST_F(CreatePartsCustom, CreationWithAGeometryModel) {
    Start();
    const std::string part = utils_.CreateCustomObject(Placement(), Unit(), kMemory.data(), 3);
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Geometry/Source[0]/gm_model/Data", true), "0100FE");
    ServerCalls();
    bench::ClearFailures();
    bench::FailCall("IKlimora200805::createPart", 1, 7);
    EXPECT_EQ(utils_.CreateCustomObject(Placement(), Unit(), kMemory.data(), 3), "");
    EXPECT_EQ(ServerCalls().size(), 1u) << "no geometry without a part";
    EXPECT_EQ(Printed(), Report("Can't create custom object", 667, "CreateCustomObject", ""));
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
        EXPECT_EQ(Printed(),
                  Report("Can't set line type definitions to part", 617, "SetLinetypesForCustomObject", kTooOld));
        EXPECT_EQ(utils_.CreateCustomObject(Placement(), Unit()), "");
        EXPECT_EQ(utils_.CreateCustomObject(Placement(), Unit(), kMemory.data(), 3), "");
        const std::string tooOld = Report("Can't create custom object", 667, "CreateCustomObject", kTooOld);
        EXPECT_EQ(Printed(), tooOld + tooOld);
        EXPECT_EQ(utils_.CreateCustomObject("2A0", Unit(), true), "");
        EXPECT_EQ(Printed(), Report("Can't create custom object", 774, "CreateCustomObject", kTooOld));
        EXPECT_EQ(ServerCalls(), Texts{});
    }
}

class CreatePartsFromBlock : public CreatePartsTest {
 protected:
    static std::string AddBlock(const std::string& layer, double rotation, double nx, double ny, double nz) {
        return bench::AddBlockReference({"", "AHU-2", layer, {10, 20, 30}, rotation, {nx, ny, nz}, {}});
    }
};

TEST_F(CreatePartsFromBlock, TakesPlaceLayerAndBlockOfTheReference) {
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
        const std::string part = utils_.CreateCustomObject(block, Unit(), false);
        const std::string placement = std::string("<Position><WCS>10.000000 20.000000 30.000000</WCS></Position>") +
                                      "<Direction><WCS>" + c.direction + "</WCS></Direction><Normal><WCS>" +
                                      c.normalText + "</WCS></Normal>";
        Texts calls = ServerCalls();
        ASSERT_EQ(calls.size(), 4u) << Printed();
        EXPECT_EQ(calls[0].find("getPartAtt '" + block + "' '/Part/Type/Define' -> "), 0u) << calls[0];
        calls.erase(calls.begin());
        EXPECT_EQ(calls,
                  (Texts{"createPart " + CustomCommand(placement, kUnitTypes, "V-BLOCK") + " -> '" + part + "' 0",
                         Set(part, "/Part/Geometry/Linetypedef[0]", Linetypes("V-BLOCK")),
                         Set(part, "/Part/Geometry/Source[0]/Block/Name", "AHU-2")}));
    }
}

TEST_F(CreatePartsFromBlock, LayerNameIsCutAndTheGivenOneServesWhenThereIsNone) {
    Start();
    const std::string block = AddBlock(std::string(140, 'L'), 0, 0, 0, 1);
    const std::string part = utils_.CreateCustomObject(block, Unit(), true);
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Geometry/Layer/Name", true), std::string(128, 'L'));
    bench::FailCall("AcDbEntity::layer", 2);
    const std::string second = utils_.CreateCustomObject(block, Unit(), true);
    EXPECT_EQ(utils_.GetPartAtt(second, "/Part/Geometry/Layer/Name", true), "V-UNIT");
}

TEST_F(CreatePartsFromBlock, CustomObjectIsLeftAloneAndTheQuestionIsSilent) {
    Start();
    utils_.SetTrace(true, true, true);
    EXPECT_EQ(utils_.CreateCustomObject("2A0", Unit(), true), "");
    EXPECT_EQ(utils_.CreateCustomObject("FFFF", Unit(), true), "");
    EXPECT_EQ(Printed(),
              Report("Can't create custom object", 774, "CreateCustomObject", "Can't get block reference object id."))
        << "no trace of the questions for the type";
    EXPECT_TRUE(Sent("createPart").empty());
    bool keep = false, failures = false, all = false;
    utils_.GetTrace(&keep, &failures, &all);
    EXPECT_TRUE(keep && failures && all);
    utils_.SetTrace(false, false, false);
}

TEST_F(CreatePartsFromBlock, EachStepHasItsMessage) {
    Start();
    const std::string block = AddBlock("0", 0, 0, 0, 1);
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
        const std::string part = utils_.CreateCustomObject(c.handle, Unit(), true);
        EXPECT_EQ(Printed(), Report("Can't create custom object", 774, "CreateCustomObject", c.message));
        const Texts created = Sent("createPart");
        ASSERT_EQ(created.size(), c.created) << c.message;
        EXPECT_EQ(part.empty(), created.empty()) << c.message;
        for (const std::string& call : created)
            EXPECT_NE(call.find(" -> '" + part + "' 0"), std::string::npos) << "the part that was made comes back";
    }
}

TEST_F(CreatePartsFromBlock, NeedsADrawing) {
    Start();
    bench::CloseDrawing();
    EXPECT_EQ(utils_.CreateCustomObject("FFFF", Unit(), true), "");
    EXPECT_EQ(Printed(),
              Report("Can't create custom object", 774, "CreateCustomObject", "Can't get working database."));
}

TEST_F(CreatePartsFromBlock, NoGeometryWithoutAPart) {
    Start();
    const std::string block = AddBlock("0", 0, 0, 0, 1);
    bench::FailCall("IKlimora200805::createPart", 1, 7);
    EXPECT_EQ(utils_.CreateCustomObject(block, Unit(), true), "");
    EXPECT_EQ(Printed(), Report("Can't create custom object", 667, "CreateCustomObject", ""));
    EXPECT_TRUE(Sent("setPartAtt").empty());
}

}  // namespace
