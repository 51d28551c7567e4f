// Custom objects: geometry, line types, creation from values and from a block reference, and the required version.
#include <cmath>
#include <iterator>
#include <utility>

#include <dbents.h>

#include "CreatePartsFixture.h"
#include "DrawingFixture.h"
#include "Util/ArxHandles.h"
#include "Util/KLUtils.h"

namespace {

const std::string kMemory("\x01\x00\xFE", 3);
constexpr long kThreshold = 2005087;
const CustomObjectData kUnit = {1, "Fan & coil", "FC<1>", "V-UNIT"};

class CreatePartsCustom : public CreatePartsTest {
 protected:
    static std::string AddBlock(const std::string& layer, double rotation = 0, const AcGeVector3d& normal = {0, 0, 1}) {
        return bench::AddBlockReference(
            {"", "AHU-2", layer, {10, 20, 30}, rotation, {normal.x, normal.y, normal.z}, {}});
    }
    // A damaged drawing: the block of the reference is an entity.
    static std::string AddReferenceToNoBlock() {
        AcDbObjectId id;
        OpenObject<AcDbBlockReference> reference(new AcDbBlockReference(AcGePoint3d(), IdOf("2A3")));
        EXPECT_EQ(KLUtils::AppendToModelSpace(reference.get(), id), Acad::eOk);
        return bench::Entities().back().handle;
    }
};

// The four forms of geometry, applied to the air handling unit of the sample.
int (*const kForms[])(KLComUtils&) = {
    [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", kMemory.data(), 3); },
    [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", "C:\\unit.kmodel", "L=1200"); },
    [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", kMemory.data(), 3, "L=1200"); },
    [](KLComUtils& utils) { return utils.SetGeometryForCustomObject("2A0", "UNIT & BASE"); },
};

TEST_F(CreatePartsCustom, SetsEachFormOfGeometryAndReportsFailures) {
    Start(kThreshold);
    for (const auto set : kForms) {
        Log(set(utils_));
        bench::FailCall("IKlimora200805::set*", 1, 7);
        LogServerCalls(set(utils_));
    }
    bench::FailCall("IKlimora200805::setBinVariableData", 1, 7);
    LogServerCalls(kForms[0](utils_));
    for (const int ordinal : {1, 2}) {
        bench::FailCall("IKlimora200805::setPartAtt", ordinal, 7);
        LogServerCalls(kForms[2](utils_));
    }
    bench::FailCall("IKlimora200805::setPartAtt", 2, 7);
    LogServerCalls(kForms[1](utils_));
    LogServerCalls(utils_.SetGeometryForCustomObject("2A0", nullptr, 3));
    LogServerCalls(utils_.SetGeometryForCustomObject("2A0", kMemory.data(), 0));
    Log(utils_.SetGeometryForCustomObject("2A0", std::string("u.kmodel"), ""));
    Log(utils_.SetGeometryForCustomObject("2A0", kMemory.data(), 3, ""));
}

// The layer is escaped only in the command. The server rejects a bare ampersand.
TEST_F(CreatePartsCustom, SetsTheLinetypesOfTheSameLayer) {
    Start(kThreshold);
    Log(utils_.CreateCustomObject(Placement(), {1, "Fan & coil", "FC<1>", "V-1 %s"}));
    LogCommand(utils_.CreateCustomObject(Placement(), {1, "T", "", "V"}));
    LogCommand(utils_.CreateCustomObject(Placement(), {1, "", "C", "V"}));
    LogServerCalls(utils_.CreateCustomObject(Placement(), {1, "", "", "a&b"}));
}

TEST_F(CreatePartsCustom, CreatesAnObjectWithAGeometryModel) {
    Start();
    Log(utils_.CreateCustomObject(Placement(), kUnit, kMemory.data(), 3));
    bench::FailCall("IKlimora200805::createPart", 1, 7);
    LogReport(utils_.CreateCustomObject(Placement(), kUnit, kMemory.data(), 3));
}

TEST_F(CreatePartsCustom, RejectsOlderServers) {
    const auto logEach = [&] {
        for (const auto set : kForms)
            Log(set(utils_));
        Log(utils_.SetLinetypesForCustomObject("2A0", "V"));
        Log(utils_.CreateCustomObject(Placement(), kUnit));
        Log(utils_.CreateCustomObject("2A0", kUnit, true));
    };
    logEach();
    const std::string unconnected = std::exchange(log_, "");
    Start(kThreshold - 1);
    logEach();
    EXPECT_EQ(unconnected, log_);
}

TEST_F(CreatePartsCustom, ReadsPlaceLayerAndBlockOfTheReference) {
    Start(kThreshold);
    const double quarter = std::acos(-1.0) / 2;
    const std::string blocks[] = {AddBlock("V-BLOCK"), AddBlock("V-BLOCK", quarter),
                                  AddBlock("V-BLOCK", -quarter, {0, 1, 0}), AddBlock(std::string(140, 'L'))};
    Log(utils_.CreateCustomObject(blocks[0], kUnit, false));
    for (size_t i = 1; i < std::size(blocks); ++i)
        LogCommand(utils_.CreateCustomObject(blocks[i], kUnit, false));
    bench::FailCall("AcDbEntity::layer", 1);
    LogCommand(utils_.CreateCustomObject(blocks[0], kUnit, true));
    utils_.CreateCustomObject(blocks[0], kUnit, true);
    const std::vector<std::string> opened = Calls("acdbOpenObject ");
    EXPECT_EQ(opened.size(), 2u);
    for (const std::string& call : opened)
        EXPECT_NE(call.find(" read"), std::string::npos) << call;
}

TEST_F(CreatePartsCustom, KeepsAnExistingCustomObjectSilently) {
    Start();
    utils_.SetTrace(true, true, true);
    Log(utils_.CreateCustomObject("2A0", kUnit, true));
    Log(utils_.CreateCustomObject("FFFF", kUnit, true));
    utils_.SetTrace(false, false, false);
}

TEST_F(CreatePartsCustom, ReportsEachFailingStepAndReturnsNoHandle) {
    Start();
    const std::string block = AddBlock("0");
    LogReport(utils_.CreateCustomObject("2A3", kUnit, true));  // not a block reference
    LogReport(utils_.CreateCustomObject(AddReferenceToNoBlock(), kUnit, true));
    for (const auto& [call, ordinal] : {std::pair{"AcDbDatabase::getAcDbObjectId", 1},
                                        {"acdbOpenObject", 1},
                                        {"IKlimora200805::createPart", 1},
                                        {"acdbOpenObject", 2},
                                        {"AcDbBlockReference::blockTableRecord", 1},
                                        {"AcDbSymbolTableRecord::getName", 1}}) {
        bench::FailCall(call, ordinal);
        LogReport(utils_.CreateCustomObject(block, kUnit, true));
    }
    bench::CloseDrawing();
    LogReport(utils_.CreateCustomObject(block, kUnit, true));
}

}  // namespace
