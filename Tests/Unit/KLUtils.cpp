#include "DrawingFixture.h"

#include <acedads.h>
#include <adscodes.h>
#include <dbents.h>

#include "RecordedCalls.h"
#include "Util/ArxHandles.h"
#include "Util/KLUtils.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

std::string AddSilencer(const std::vector<std::pair<std::string, std::string>>& attributes) {
    return bench::AddBlockReference({"", "SILENCER", "0", {10, 20, 30}, 0, {0, 0, 1}, attributes});
}

std::vector<std::string> AttributeTexts(const AcDbBlockReference* reference) {
    std::vector<std::string> texts;
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    for (; !attributes->done(); attributes->step()) {
        OpenObject<AcDbAttribute> attribute;
        EXPECT_EQ(attribute.Open(attributes->objectId(), AcDb::kForRead), Acad::eOk);
        texts.push_back(Narrow(attribute->textStringConst()));
    }
    return texts;
}

void ExpectPoint(double x, double y, double z, const double* point) {
    EXPECT_NEAR(point[0], x, 1e-9);
    EXPECT_NEAR(point[1], y, 1e-9);
    EXPECT_NEAR(point[2], z, 1e-9);
}

class KLUtilsTest : public DrawingTest {
 protected:
    // Origin (100, 50, 0), rotated by 90 degrees about z.
    static void TurnUcs() {
        const double origin[] = {100, 50, 0}, xAxis[] = {0, 1, 0}, yAxis[] = {-1, 0, 0};
        bench::SetUcs(origin, xAxis, yAxis);
    }
    static OpenObject<AcDbBlockReference> Opened(const std::string& handle, AcDb::OpenMode mode = AcDb::kForRead) {
        OpenObject<AcDbBlockReference> reference;
        EXPECT_EQ(reference.Open(IdOf(handle), mode), Acad::eOk);
        return reference;
    }
};

}  // namespace

TEST_F(KLUtilsTest, ReturnsTheMatrixFromUserToWorld) {
    TurnUcs();
    AcGeMatrix3d matrix;
    EXPECT_TRUE(KLUtils::GetUcsMatrix(matrix));
    const double expected[4][4] = {{0, -1, 0, 100}, {1, 0, 0, 50}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(matrix.entry[i / 4][i % 4], expected[i / 4][i % 4], 1e-12) << i;
    const AcGeVector3d xDirection = KLUtils::GetUcsXDir();
    ExpectPoint(0, 1, 0, &xDirection.x);
}

TEST_F(KLUtilsTest, ReturnsIdentityWhenAVariableIsUnreadable) {
    TurnUcs();
    for (int call = 1; call <= 3; ++call) {
        bench::ClearFaults();
        bench::FailCall("acedGetVar", call);
        AcGeMatrix3d matrix = AcGeMatrix3d::translation(AcGeVector3d(7, 7, 7));
        EXPECT_FALSE(KLUtils::GetUcsMatrix(matrix)) << call;
        EXPECT_TRUE(matrix == AcGeMatrix3d::kIdentity) << call;
    }
}

TEST_F(KLUtilsTest, ReportsValuesThatAreNotPointsAndUsesThem) {
    RecordedCalls calls;
    calls.Record("acedGetVar", acedGetVar, [](const ACHAR* name, resbuf* value) {
        value->restype = RTREAL;
        for (int i = 0; i < 3; ++i)
            value->resval.rpoint[i] = name[3] == L'O' ? 7 : i == (name[3] == L'Y');
        return RTNORM;
    });
    AcGeMatrix3d matrix;
    EXPECT_TRUE(KLUtils::GetUcsMatrix(matrix));
    EXPECT_EQ(bench::Transcript(), "UCSORG not a point.\nUCSXDIR not a point.\nUCSYDIR not a point.\n");
    const AcGeMatrix3d expected = AcGeMatrix3d::translation(AcGeVector3d(7, 7, 7));
    EXPECT_TRUE(matrix == expected);
}

TEST_F(KLUtilsTest, ConvertsPointsAndVectorsBothWays) {
    TurnUcs();
    AcGePoint3d point;
    EXPECT_TRUE(KLUtils::WcsToUcsPoint(AcGePoint3d(100, 60, 5), point));
    ExpectPoint(10, 0, 5, &point.x);
    EXPECT_TRUE(KLUtils::UcsToWcsPoint(AcGePoint3d(10, 0, 5), point));
    ExpectPoint(100, 60, 5, &point.x);
    AcGeVector3d vector;
    EXPECT_TRUE(KLUtils::WcsToUcsVector(AcGeVector3d(0, 2, 3), vector));
    ExpectPoint(2, 0, 3, &vector.x);
    EXPECT_TRUE(KLUtils::UcsToWcsVector(AcGeVector3d(2, 0, 3), vector));
    ExpectPoint(0, 2, 3, &vector.x);
    for (int call = 5; call <= 8; ++call)
        bench::FailCall("acedTrans", call);
    EXPECT_FALSE(KLUtils::UcsToWcsPoint(AcGePoint3d(1, 1, 1), point));
}

// The tests of the duct selection pick with success.
TEST_F(KLUtilsTest, ReturnsNoEntityWhenACallFails) {
    const std::string duct = AddDuct();
    AcDbObjectId id;
    for (const char* call : {"acedSSGet", "acedSSName", "acdbGetObjectId"}) {
        bench::ResetBench();
        bench::ClearAnswers();
        bench::QueueAnswer({bench::Answer::kPick, duct});
        bench::FailCall(call, 1);
        EXPECT_FALSE(KLUtils::PickEntity(L"\nPick:", id)) << call;
        EXPECT_EQ(bench::OutstandingResources(), std::vector<std::string>()) << call;
    }
    bench::ClearAnswers();
}

TEST_F(KLUtilsTest, UpdatesEveryAttributeOfTheTag) {
    const std::string longTag(32, 'L');
    const std::string handle = AddSilencer({{"CODE", "old"},
                                            {"code", "keep"},
                                            {"CODE", "older"},
                                            {"CODEX", "keep"},
                                            {longTag + "A", "old"},
                                            {std::string(31, 'L') + "X", "keep"}});
    const auto reference = Opened(handle, AcDb::kForWrite);
    EXPECT_EQ(KLUtils::UpdateAttribute(reference.get(), "CODE", "SORV1"), 0);
    EXPECT_EQ(KLUtils::UpdateAttribute(reference.get(), (longTag + "B").c_str(), "32"), 0);
    EXPECT_EQ(AttributeTexts(reference.get()),
              (std::vector<std::string>{"SORV1", "keep", "SORV1", "keep", "32", "keep"}));
    int modified = 0;
    for (const std::string& call : bench::CallLog())
        modified += call.find("AcDbEntity::recordGraphicsModified") == 0;
    EXPECT_EQ(modified, 3);
    EXPECT_EQ(KLUtils::UpdateAttribute(nullptr, "CODE", "x"), -1);
}

TEST_F(KLUtilsTest, ReportsAFailedAttribute) {
    const auto reference = Opened(AddSilencer({{"CODE", "old"}, {"CODE", "old"}}), AcDb::kForWrite);
    const std::string line =
        "\nSorvik Klimora Cloud Plugin: Failed to update attribute. "
        "PlugIn/Util/KLUtils(282):KLUtils::UpdateAttribute ";
    for (const auto& [call, message] : {std::pair{"acdbOpenObject", "An attribute could not be opened for write."},
                                        {"AcDbText::setTextString", "An attribute's text could not be set."}}) {
        bench::ClearFaults();
        bench::ClearTranscript();
        bench::FailCall(call, 1);
        EXPECT_EQ(KLUtils::UpdateAttribute(reference.get(), "CODE", "new"), -1);
        EXPECT_EQ(bench::Transcript(), line + message + "\n");
    }
    EXPECT_EQ(AttributeTexts(reference.get()), (std::vector<std::string>{"old", "old"}));
    bench::ClearTranscript();
    EXPECT_EQ(KLUtils::UpdateAttribute(reference.get(), nullptr, "new"), -1);
    EXPECT_EQ(KLUtils::UpdateAttribute(reference.get(), "CODE", nullptr), -1);
    EXPECT_EQ(bench::Transcript(), line + "Tag or value is missing.\n" + line + "Tag or value is missing.\n");
}

TEST_F(KLUtilsTest, MovesAnEntityOrThrows) {
    const std::string handle = AddSilencer({});
    KLUtils::MoveEntity(IdOf(handle), AcGeVector3d(1, -2, 0.5));
    const AcGePoint3d position = Opened(handle)->position();
    ExpectPoint(11, 18, 30.5, &position.x);
    bench::AddEntity({"2F0", "EwaDuct", "LOCKED"});
    bench::LockLayer("LOCKED", true);
    try {
        KLUtils::MoveEntity(IdOf("2F0"), AcGeVector3d(1, 0, 0));
        ADD_FAILURE() << "an entity on a locked layer was moved";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "failed to move entity because entity could not be opened for write");
    }
}

TEST_F(KLUtilsTest, AppendsEntitiesToModelSpace) {
    const std::string before = AddSilencer({});
    const size_t count = bench::Entities().size();
    const AcDbObjectId block = Opened(before)->blockTableRecord();
    AcDbObjectId id;
    OpenObject<AcDbBlockReference> added(new AcDbBlockReference(AcGePoint3d(1, 2, 3), block));
    ASSERT_EQ(KLUtils::AppendToModelSpace(added.get(), id), Acad::eOk);
    EXPECT_FALSE(id.isNull());
    const std::vector<std::string> calls = bench::CallLog();
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& call) { return call.find("AcDbDatabase::getBlockTable read") == 0; }),
              1)
        << testing::PrintToString(calls);
    added.reset();
    EXPECT_EQ(bench::Entities().size(), count + 1);
    OpenObject<AcDbBlockReference> refused(new AcDbBlockReference(AcGePoint3d(1, 2, 3), block));
    for (const char* call :
         {"AcDbDatabase::getBlockTable", "AcDbSymbolTable::getIdAt", "AcDbBlockTableRecord::appendAcDbEntity"}) {
        bench::ClearFaults();
        bench::FailCall(call, 1);
        EXPECT_NE(KLUtils::AppendToModelSpace(refused.get(), id), Acad::eOk) << call;
    }
    delete refused.release();

    bench::CloseDrawing();
    EXPECT_EQ(KLUtils::AppendToModelSpace(nullptr, id), Acad::eNoDatabase);
    EXPECT_FALSE(KLUtils::IsTileModeOn());
    const AcGeVector3d xDirection = KLUtils::GetUcsXDir();
    ExpectPoint(1, 0, 0, &xDirection.x);
}

TEST_F(KLUtilsTest, ReadsAndWritesSystemVariables) {
    EXPECT_TRUE(KLUtils::CmdEchoOff());
    EXPECT_EQ(bench::SystemVariable("CMDECHO"), "0");
    EXPECT_TRUE(KLUtils::CmdEchoOn());
    EXPECT_EQ(bench::SystemVariable("CMDECHO"), "1");

    short value = 77;
    EXPECT_FALSE(KLUtils::GetSysVarShort(L"NOSUCHVARIABLE", value));
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(KLUtils::SetSysVarShort(L"NOSUCHVARIABLE", 1));
    bench::SetSystemVariable("CVPORT", "3");
    EXPECT_EQ(KLUtils::GetCurrentViewport(), 3);
    bench::ClearFaults();
    bench::FailCall("acedGetVar", 1);
    EXPECT_EQ(KLUtils::GetCurrentViewport(), 0);
    EXPECT_TRUE(KLUtils::IsTileModeOn());
    bench::SetSystemVariable("TILEMODE", "0");
    EXPECT_FALSE(KLUtils::IsTileModeOn());
}

TEST_F(KLUtilsTest, MatchesTheHostReleaseExactly) {
    bench::SetProduct("AutoCAD", 24, 1);
    const KLUtils::HostRelease listed[] = {"24.10", "4.1", "24.1"};
    EXPECT_TRUE(KLUtils::IsHostReleaseListed(listed, 3));
    EXPECT_FALSE(KLUtils::IsHostReleaseListed(listed, 2));
    EXPECT_FALSE(KLUtils::IsHostReleaseListed(listed, 0));
}

TEST_F(KLUtilsTest, ReturnsOffsetAndAnglesBetweenTransforms) {
    const AcGeVector3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    const AcGeMatrix3d first = AcGeMatrix3d::translation(AcGeVector3d(5, 6, 7)) * AcGeMatrix3d::rotation(0.4, y) *
                               AcGeMatrix3d::rotation(1.1, x);
    const double cases[][3] = {{0, 0, 0},      {0.7, 0, 0},  {0, 0.7, 0},     {0, 0, 0.7},
                               {2.5, -1.2, 3}, {-3, 1.5, 1}, {1, kPi / 2, 0}, {-2, -kPi / 2, 0}};
    for (const auto& angles : cases) {
        AcGeMatrix3d second = first * AcGeMatrix3d::rotation(angles[0], z) * AcGeMatrix3d::rotation(angles[1], y) *
                              AcGeMatrix3d::rotation(angles[2], x);
        second.setTranslation(AcGeVector3d(6, 4, 10));
        AcGeVector3d offset;
        double found[3];
        KLUtils::GetTransformDifference(first, second, offset, found);
        ExpectPoint(1, -2, 3, &offset.x);
        ExpectPoint(angles[0], angles[1], angles[2], found);
    }
}

TEST_F(KLUtilsTest, RestoresTheCursorAfterWaiting) {
    const HCURSOR before = LoadCursorW(nullptr, IDC_CROSS);
    SetCursor(before);
    {
        KLUtils::WaitCursor cursor;
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
        cursor.Show();  // shown already: the first cursor stays remembered
        cursor.Hide();
        EXPECT_EQ(GetCursor(), before);
        cursor.Show();
        EXPECT_NE(GetCursor(), before);
    }
    EXPECT_EQ(GetCursor(), before);
    KLUtils::WaitCursor missing("no such cursor");
    EXPECT_EQ(GetCursor(), before);
    KLUtils::WaitCursor waiting(MAKEINTRESOURCEA(32514), false);
    EXPECT_EQ(GetCursor(), before);
}
