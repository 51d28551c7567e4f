// Typed access to part attributes, and records of repeated elements.
#include "CommaLocale.h"
#include "KlimoraBench.h"
#include "Util/KlimComSrvImpl.h"

namespace {

// A text attribute that can be set on every part.
constexpr char kText[] = "/Part/Geometry/Source[0]/KModel/Params";

class PartAttributes : public ConnectedBench {
 protected:
    PartAttributes() { Start(); }

 private:
    const CommaLocale locale_;
};

TEST_F(PartAttributes, WritesTextAndThrowsOnlyWhenRequired) {
    EXPECT_EQ(utils_.SetPartAtt("2A3", kText, 20090300, true), 0);
    EXPECT_EQ(utils_.SetPartAtt("2A3", kText, std::string("A<1>"), true), 0);
    EXPECT_EQ(Calls("IKlimora200805::setPartAtt '2A3' '/Part/Geometry/Source[0]/KModel/Params' "),
              (std::vector<std::string>{"'20090300' -> 0", "'A<1>' -> 0"}));
    bench::FailCall("IKlimora200805::setPartAtt", 3, 9);
    EXPECT_EQ(utils_.SetPartAtt("2A3", kText, 1, false), 9);
    EXPECT_EQ(Thrown([&] { utils_.SetPartAtt("FFFF", kText, 1, true); }), "KLComUtils::SetPartAtt");
}

TEST_F(PartAttributes, ReadsEachKind) {
    EXPECT_EQ(utils_.GetPartAtt("2A3", "/part/diameter", true), "250");
    EXPECT_EQ(utils_.GetPartAttReal("2A3", "/Part/qv_sizingflow/ls", true), 200.0);
    const AcGePoint3d position = utils_.GetPartAttPoint("2A3", "/Part/Position/WCS", true);
    EXPECT_TRUE(position.x == 11300 && position.y == 9250 && position.z == 2800);
    const AcGeVector3d direction = utils_.GetPartAttVector("2A3", "/Part/Direction/WCS", true);
    EXPECT_TRUE(direction.x == 0 && direction.y == 1 && direction.z == 0);
    EXPECT_TRUE(utils_.IsPartTypeID("2A3", 68));
    EXPECT_FALSE(utils_.IsPartTypeID("2AA", 68));
    EXPECT_TRUE(utils_.IsPartTypeID("FFFF", -1)) << "the type of a part that does not exist";
    EXPECT_TRUE(utils_.IsPartTypeDefine("2A3", "EWAPART_DUCT"));
    EXPECT_FALSE(utils_.IsPartTypeDefine("2A3", "ewapart_duct"));
    utils_.SetPartAtt("2A3", kText, std::string("1.5 2"), true);
    EXPECT_EQ(utils_.GetPartAttReal("2A3", kText, true), 1.5);
    EXPECT_EQ(utils_.GetPartAttOrDefault("2A3", kText, 7), 1);
    const AcGePoint3d point = utils_.GetPartAttPoint("2A3", kText, true);
    EXPECT_TRUE(point.x == 1.5 && point.y == 2 && point.z == 0) << "a short text leaves the rest at 0";
}

TEST_F(PartAttributes, ThrowsForFailedReadsOnlyWhenRequired) {
    utils_.SetPartAtt("2A3", kText, std::string("wide"), true);
    EXPECT_EQ(Thrown([&] { utils_.GetPartAttReal("2A3", kText, true); }), "Could not convert \" wide\" to target type");
    EXPECT_EQ(Thrown([&] { utils_.GetPartAttReal("FFFF", "/Part/Length", true); }), "KLComUtils::GetPartAtt");
    EXPECT_EQ(Thrown([&] { utils_.GetPartAttPoint("FFFF", "/Part/Position/WCS", true); }), "KLComUtils::GetPartAtt");
    EXPECT_EQ(utils_.GetPartAtt("FFFF", "/Part/Length", false), "");
    EXPECT_EQ(utils_.GetPartAttReal("FFFF", "/Part/Length", false), 0);
    EXPECT_EQ(utils_.GetPartAttReal("2A3", kText, false), 0);
    const AcGeVector3d vector = utils_.GetPartAttVector("FFFF", "/Part/Direction/WCS", false);
    EXPECT_TRUE(vector.x == 0 && vector.y == 0 && vector.z == 0);
    EXPECT_EQ(utils_.GetPartAttOrDefault("FFFF", "/Part/Length", 7), 7);
    EXPECT_EQ(utils_.GetPartAttOrDefault("2A3", kText, 7), 7) << "non-numeric text";
    EXPECT_EQ(utils_.GetPartAttOrDefault("FFFF", "/Part/Length", std::string("none")), "none");
}

TEST_F(PartAttributes, ReturnsTheTraceLineAsLastError) {
    std::string value;
    bench::FailCall("IKlimora200805::getPartAtt", 1, 5);
    utils_.GetPartAtt("2A3", "/part/width", value, false);
    EXPECT_EQ(utils_.GetLastError(), "IKlimora200805::getPartAtt failed by injection.");
    utils_.SetTrace(true, false, false);
    utils_.GetPartAtt("2A3", "/part/diameter", value, false);
    EXPECT_EQ(utils_.GetLastError(), "KlimComSrvImpl::getPartAtt:('2A3', '/part/diameter', '250')=0 ");
    KlimComSrvImpl server;
    server.setTrace({true, false, false});
    server.setPartAttDouble("2A3", "/Part/Nothing", 1.5);
    EXPECT_NE(server.lastTrace().find("'2A3', '/Part/Nothing', 1.500000)="), std::string::npos) << server.lastTrace();
}

TEST_F(PartAttributes, ReadsRecordsWithTheNamedAttributes) {
    std::vector<KLComUtils::Record> records(1);
    ASSERT_EQ(utils_.GetAttributes("ignored", "/Project/Ductwork/System", {"Name", "Type/ID"}, records), 0);
    ASSERT_EQ(records.size(), 6u) << "appended after the existing record";
    EXPECT_EQ(records[1], (KLComUtils::Record{{"Name", "Supply air"}, {"Type_ID", "0"}}));
    EXPECT_EQ(records[5].at("Type_ID"), "7");
    EXPECT_EQ(bench::CallLog().size(), 11u) << "one count, and one read for each element and name";
}

TEST_F(PartAttributes, KeepsRecordsReadBeforeAFailure) {
    std::vector<KLComUtils::Record> records;
    bench::FailCall("IKlimora200805::getPartAtt", 4, 3);
    EXPECT_EQ(utils_.GetAttributes("", "/Project/Ductwork/System", {"Name", "ID"}, records), -1);
    EXPECT_EQ(records.size(), 1u);
    const std::string place = "KLComUtils(280):KLComUtils::GetAttributes";
    EXPECT_EQ(Printed(), Report("Failed to get attributes.", place, "KLComUtils::GetPartAtt"));
    bench::FailCall("IKlimora200805::getPartAtt", 5, 3);
    EXPECT_EQ(utils_.GetAttributes("", "/Project/Ductwork/System", {"Name"}, records), 0)
        << "without a count there are no elements";
    EXPECT_EQ(records.size(), 1u);
    EXPECT_EQ(utils_.GetAttributes("", "Parts", {"ID"}, records), -1);
    EXPECT_EQ(Printed(), Report("Failed to get attributes.", place, "Can't find '/' in a parent path Parts"));
}

TEST(ReplaceAll, ReplacesFromLeftToRight) {
    EXPECT_EQ(ReplaceAll("Size/Width/mm", "/", "_"), "Size_Width_mm");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAll("//", "/", "//"), "////");
}

}  // namespace
