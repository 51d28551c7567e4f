// Opening and closing of objects, and what happens to those who do not keep the rules.
#include "AutoCADFixture.h"

#include "acutmem.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using AutoCADObjects = AutoCADTest;

TEST_F(AutoCADObjects, WriterIsAloneAndReadersShare) {
    const std::string duct = AddDuct();
    AcDbEntity* first = Opened(duct, AcDb::kForRead);
    AcDbEntity* second = Opened(duct, AcDb::kForRead);
    AcDbEntity* third = second;
    EXPECT_EQ(acdbOpenObject(third, Id(duct), AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(third, nullptr);
    EXPECT_EQ(first->upgradeOpen(), Acad::eHadMultipleReaders);
    EXPECT_EQ(second->close(), Acad::eOk);
    EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(third, Id(duct), AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("open object " + duct));
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(Opened(duct, AcDb::kForWrite)->close(), Acad::eOk);
}

TEST_F(AutoCADObjects, LockedLayerRefusesWritersOnly) {
    const std::string duct = AddDuct("DUCTS");
    bench::LockLayer("ducts", true);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenObject(entity, Id(duct), AcDb::kForWrite), Acad::eOnLockedLayer);
    entity = Opened(duct, AcDb::kForRead);
    EXPECT_EQ(entity->upgradeOpen(), Acad::eOnLockedLayer);
    EXPECT_EQ(entity->erase(), Acad::eNotOpenForWrite);
    EXPECT_EQ(entity->close(), Acad::eOk);
    bench::LockLayer("DUCTS", false);
    EXPECT_EQ(Opened(duct, AcDb::kForWrite)->close(), Acad::eOk);
}

TEST_F(AutoCADObjects, ClassAndErasureDecideWhatOpens) {
    const std::string duct = AddDuct();
    AcDbBlockReference* reference = nullptr;
    EXPECT_EQ(acdbOpenObject(reference, Id(duct)), Acad::eNotThatKindOfClass);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenObject(entity, Database()->blockTableId()), Acad::eNotAnEntity);
    EXPECT_EQ(acdbOpenObject(entity, AcDbObjectId::kNull), Acad::eNullObjectId);
    entity = Opened(duct, AcDb::kForRead);
    EXPECT_STREQ(entity->isA()->name(), L"EwaDuct");
    EXPECT_EQ(AcDbBlockReference::cast(entity), nullptr);
    EXPECT_EQ(AcDbEntity::cast(entity), entity);
    entity->close();
    ASSERT_TRUE(bench::EraseEntity(duct));
    EXPECT_EQ(acdbOpenObject(entity, Id(duct)), Acad::eWasErased);
    EXPECT_EQ(acdbOpenObject(entity, Id(duct), AcDb::kForRead, true), Acad::eOk);
    entity->close();
}

TEST_F(AutoCADObjects, UseAfterCloseIsAccused) {
    const std::string duct = AddDuct();
    AcDbEntity* entity = Opened(duct, AcDb::kForRead);
    EXPECT_EQ(entity->close(), Acad::eOk);
    EXPECT_EQ(entity->close(), Acad::eNotOpenForRead);
    EXPECT_EQ(entity->layer(), nullptr);
    EXPECT_TRUE(entity->objectId().isNull());
    EXPECT_EQ(entity->xData(), nullptr);
    EXPECT_THAT(TakeAccusations(),
                ElementsAre("The object " + duct + " was closed a second time.", HasSubstr("layer was called on"),
                            HasSubstr("objectId was called on"), HasSubstr("xData was called on")));
}

TEST_F(AutoCADObjects, DeletingADrawingsObjectIsAccused) {
    const std::string duct = AddDuct();
    delete Opened(duct, AcDb::kForRead);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("was deleted by its user")));
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("open object " + duct));
    bench::ClearBalance();
}

TEST_F(AutoCADObjects, NewEntityIsTheCallersUntilItIsAppended) {
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(Database()->getSymbolTable(blocks), Acad::eOk);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForRead), Acad::eOk);
    blocks->close();
    AcDbBlockReference* reference = new AcDbBlockReference(AcGePoint3d(1, 2, 3), space->objectId());
    EXPECT_THAT(bench::BenchBalance(), testing::Contains("unowned object AcDbBlockReference"));
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, reference), Acad::eNotOpenForWrite);
    EXPECT_TRUE(id.isNull());
    ASSERT_EQ(space->upgradeOpen(), Acad::eOk);
    ASSERT_EQ(space->appendAcDbEntity(id, reference), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, reference), Acad::eAlreadyInDb);
    space->close();
    EXPECT_EQ(reference->close(), Acad::eOk);
    EXPECT_EQ(bench::Entities().size(), 1u);
    EXPECT_THAT(bench::DrawingState(), HasSubstr("AcDbBlockReference layer=0 block=*Model_Space at=1,2,3"));
}

TEST_F(AutoCADObjects, AttributesAreWalkedAndChanged) {
    AcDbBlockReference* reference = nullptr;
    ASSERT_EQ(acdbOpenObject(reference, Id(AddTaggedReference())), Acad::eOk);
    AcDbObjectIterator* iterator = reference->attributeIterator();
    std::string tags;
    for (; !iterator->done(); iterator->step()) {
        AcDbAttribute* attribute = nullptr;
        ASSERT_EQ(reference->openAttribute(attribute, iterator->objectId(), AcDb::kForWrite), Acad::eOk);
        ACHAR* tag = attribute->tag();
        tags += Narrowed(tag) + ";";
        acutDelString(tag);
        EXPECT_EQ(attribute->setTextString(L"new"), Acad::eOk);
        attribute->recordGraphicsModified();
        attribute->close();
    }
    delete iterator;
    reference->close();
    EXPECT_EQ(tags, "CODE;CODE;NOTE;");
    EXPECT_THAT(bench::DrawingState(), HasSubstr("NOTE=new"));
    EXPECT_THAT(bench::DrawingState(), testing::Not(HasSubstr("CODE=A")));
}

TEST_F(AutoCADObjects, ReaderCanChangeNothing) {
    const std::string before = AddTaggedReference();
    const std::string state = bench::DrawingState();
    AcDbEntity* entity = Opened(before, AcDb::kForRead);
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity);
    EXPECT_EQ(reference->setPosition(AcGePoint3d(9, 9, 9)), Acad::eNotOpenForWrite);
    EXPECT_EQ(reference->transformBy(AcGeMatrix3d::translation(AcGeVector3d::kXAxis)), Acad::eNotOpenForWrite);
    EXPECT_EQ(reference->setLayer(L"0"), Acad::eNotOpenForWrite);
    reference->recordGraphicsModified();
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("which is not open for writing")));
    reference->close();
    EXPECT_EQ(bench::DrawingState(), state);
}

TEST_F(AutoCADObjects, NamesLeadToObjectsAndBack) {
    const std::string duct = AddDuct();
    ads_name name = {-1, -1};
    ASSERT_EQ(acdbGetAdsName(name, Id(duct)), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
    EXPECT_EQ(id, Id(duct));
    const ads_name wrong = {0x1234, 0};
    EXPECT_EQ(acdbGetObjectId(id, wrong), Acad::eInvalidAdsName);
    EXPECT_EQ(Database()->getAcDbObjectId(id, false, AcDbHandle(L"FFFF")), Acad::eUnknownHandle);
    EXPECT_EQ(Database()->getAcDbObjectId(id, false, AcDbHandle(L"no handle")), Acad::eNullHandle);
    ACHAR digits[AcDbHandle::kStrSiz];
    ASSERT_TRUE(Id(duct).handle().getIntoAsciiBuffer(digits));
    EXPECT_EQ(Narrowed(digits), duct);
    EXPECT_FALSE(Id(duct).handle().getIntoAsciiBuffer(digits, duct.size()));
}

TEST_F(AutoCADObjects, IdsOfAClosedDrawingOpenNothing) {
    const AcDbObjectId id = Id(AddDuct());
    bench::NewDrawing("other.dwg");
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenObject(entity, id), Acad::ePermanentlyErased);
    EXPECT_FALSE(id.isValid());
}

TEST_F(AutoCADObjects, PlannedFailuresReachTheCallerAndLeaveNothingOpen) {
    const std::string duct = AddDuct();
    bench::FailCall("acdbOpenObject", 1, Acad::eWasErased);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenObject(entity, Id(duct)), Acad::eWasErased);
    EXPECT_EQ(entity, nullptr);
    entity = Opened(duct, AcDb::kForRead);
    bench::FailCall("AcDbEntity::layer", 1);
    EXPECT_EQ(entity->layer(), nullptr);
    bench::FailCall("AcDbObject::close", 1);
    EXPECT_NE(entity->close(), Acad::eOk);
    EXPECT_THAT(bench::BenchBalance(), IsEmpty());
    EXPECT_THAT(bench::Journal(), ElementsAre("acdbOpenObject " + duct + " read AcDbEntity -> 80",
                                              "acdbOpenObject " + duct + " read AcDbEntity -> 0",
                                              "AcDbEntity::layer " + duct, "AcDbObject::close " + duct + " -> 85"));
}
