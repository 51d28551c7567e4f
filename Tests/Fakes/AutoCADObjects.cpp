// Opening and closing objects, transactions, and the violations that misuse reports.
#include "AutoCADFixture.h"

#include <thread>

#include "actrans.h"

using testing::ElementsAre;
using testing::HasSubstr;

using AutoCADObjects = AutoCADTest;

TEST_F(AutoCADObjects, AllowsOneWriterOrSeveralReaders) {
    const std::string duct = AddDuct();
    AcDbEntity* first = Opened(duct, AcDb::kForRead);
    AcDbEntity* second = Opened(duct, AcDb::kForRead);
    AcDbEntity* third = second;
    EXPECT_EQ(acdbOpenObject(third, Id(duct), AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(third, nullptr);
    second->close();
    first->close();
    first = Opened(duct, AcDb::kForWrite);
    EXPECT_EQ(acdbOpenObject(third, Id(duct), AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("open object " + duct));
    first->close();
}

TEST_F(AutoCADObjects, OpensOnlyExistingObjectsOfTheRightClass) {
    const AcDbObjectId duct = Id(AddDuct()), erased = Id(AddDuct());
    AcDbBlockReference* reference = nullptr;
    EXPECT_EQ(acdbOpenObject(reference, duct), Acad::eNotThatKindOfClass);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenObject(entity, AcDbObjectId(reinterpret_cast<AcDbStub*>(this))), Acad::eInvalidInput);
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("invalid object id")));
    ASSERT_TRUE(bench::EraseEntity("201"));
    EXPECT_EQ(acdbOpenObject(entity, erased), Acad::eWasErased);
    bench::NewDrawing("other.dwg");
    EXPECT_EQ(acdbOpenObject(entity, duct), Acad::ePermanentlyErased);
}

TEST_F(AutoCADObjects, DetectsUseAfterCloseAndDeletion) {
    const std::string duct = AddDuct();
    AcDbEntity* entity = Opened(duct, AcDb::kForWrite);
    EXPECT_EQ(entity->close(), Acad::eOk);
    EXPECT_EQ(entity->close(), Acad::eNotOpenForRead);
    EXPECT_EQ(entity->layer(), nullptr);
    EXPECT_EQ(entity->xData(), nullptr);
    EXPECT_EQ(AcDbBlockReference::cast(entity), nullptr);
    EXPECT_EQ(entity->transformBy(AcGeMatrix3d()), Acad::eNotOpenForWrite);
    delete Opened(duct, AcDb::kForRead);
    EXPECT_THAT(TakeViolations(),
                ElementsAre("The object " + duct + " was closed a second time.", HasSubstr("layer was called on"),
                            HasSubstr("xData was called on"), HasSubstr("isA was called on"),
                            HasSubstr("transformBy was called on"), HasSubstr("was deleted by its user")));
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("open object " + duct));
    bench::ClearOutstandingResources();
}

TEST_F(AutoCADObjects, RejectsChangesByAReader) {
    const std::string handle = bench::AddBlockReference({"", "TAG", "0", {1, 2, 3}, 0, {0, 0, 1}, {{"CODE", "A"}}});
    const std::string state = bench::DrawingState();
    AcDbBlockReference* reference = AcDbBlockReference::cast(Opened(handle, AcDb::kForRead));
    EXPECT_EQ(reference->transformBy(AcGeMatrix3d::translation(AcGeVector3d::kXAxis)), Acad::eNotOpenForWrite);
    reference->recordGraphicsModified();
    AcDbObjectIterator* attributes = reference->attributeIterator();
    attributes->step();
    EXPECT_TRUE(attributes->objectId().isNull());
    EXPECT_THAT(bench::OutstandingResources(), testing::Contains("attribute iterator " + handle));
    delete attributes;
    reference->close();
    EXPECT_EQ(bench::DrawingState(), state);
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("which is not open for writing"), HasSubstr("its end")));
}

TEST_F(AutoCADObjects, TracksANewEntityUntilItIsAppended) {
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(Database()->getBlockTable(blocks), Acad::eOk);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForRead), Acad::eOk);
    AcDbBlockReference* reference = new AcDbBlockReference(AcGePoint3d(1, 2, 3), Id("1B"));
    EXPECT_THAT(bench::OutstandingResources(), testing::Contains("unowned object AcDbBlockReference"));
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, reference), Acad::eNotOpenForWrite);
    EXPECT_EQ(reference->close(), Acad::eNotInDatabase);
    space->close();
    ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(space->appendAcDbEntity(id, reference), Acad::eOk);
    EXPECT_EQ(reference->close(), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, reference), Acad::eAlreadyInDb);
    space->close();
    blocks->close();
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("must be deleted"), HasSubstr("after it had been closed")));
}

TEST_F(AutoCADObjects, RestoresTheDrawingOnAbortOrFailedEnd) {
    const std::string duct = AddDuct(), before = bench::DrawingState();
    AcDbTransactionManager* manager = acdbTransactionManager;
    bench::FailCall("AcTransactionManager::endTransaction", 1);
    for (const bool abort : {true, false}) {
        ASSERT_NE(manager->startTransaction(), nullptr);
        acdbRegApp(L"SORV");
        AcDbEntity* entity = Opened(duct, AcDb::kForWrite);
        EXPECT_EQ(entity->transformBy(AcGeMatrix3d::translation(AcGeVector3d(1, 0, 0))), Acad::eOk);
        entity->close();
        AddDuct("NEW LAYER");
        EXPECT_EQ(abort ? manager->abortTransaction() : manager->endTransaction(),
                  abort ? Acad::eOk : Acad::eLockViolation);
        EXPECT_EQ(bench::DrawingState(), before);
    }
}

TEST_F(AutoCADObjects, ReportsUnmatchedTransactionsAndForeignThreads) {
    AcDbTransactionManager* manager = acdbTransactionManager;
    EXPECT_EQ(manager->endTransaction(), Acad::eNoActiveTransactions);
    EXPECT_EQ(manager->abortTransaction(), Acad::eNoActiveTransactions);
    bench::AddForeignCommand("FORGETS", [&] { manager->startTransaction(); });
    EXPECT_TRUE(bench::RunCommand("FORGETS"));
    bench::NewDrawing("next.dwg");
    std::thread([&] { manager->abortTransaction(); }).join();
    EXPECT_THAT(TakeViolations(),
                ElementsAre(HasSubstr("endTransaction"), HasSubstr("abortTransaction"),
                            HasSubstr("FORGETS returned without ending its transaction"),
                            HasSubstr("thread that is not AutoCAD's own"), HasSubstr("no transaction is active")));
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("transaction of plan.dwg"));
    bench::ClearOutstandingResources();
}
