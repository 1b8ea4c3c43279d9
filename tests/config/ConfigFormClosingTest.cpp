#include "config/FormOwner.h"
#include "platform/RuntimeError.h"
#include "tests/config/DocumentFixture.h"

#include <functional>

namespace {

struct FakeOwner final : FormOwner
{
    void Form_Load() override
    {
        ++loads;
        if (onLoad)
            onLoad();
    }

    int loads = 0;
    std::function<void()> onLoad;
};

class Closing : public Document
{
protected:
    Closing()
    {
        load("a\r\n");
        form->setOwner(&owner, -1);
        form->activateDocument();
        showActive(*form);
    }

    [[nodiscard]] bool isOpen() const { return form && form->isVisible(); }

    FakeOwner owner;
};

TEST_F(Closing, AnUnchangedDocumentAsksNothing)
{
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(files.writes, 0);
    EXPECT_EQ(owner.loads, 1);
    EXPECT_FALSE(shell.menus["mnuItem"]);
    EXPECT_FALSE(shell.buttons["Copy"]);
}

TEST_F(Closing, YesSavesAndCloses)
{
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Yes);
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(files.writes, 1);
    EXPECT_EQ(owner.loads, 1);
}

TEST_F(Closing, NoClosesWithoutSaving)
{
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::No);
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(files.writes, 0);
    EXPECT_EQ(owner.loads, 1);
}

TEST_F(Closing, CancelKeepsItOpen)
{
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Cancel);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(files.writes, 0);
    EXPECT_EQ(owner.loads, 0);
    EXPECT_TRUE(shell.menus["mnuItem"]);
    EXPECT_EQ(form->changed(), -1);
}

TEST_F(Closing, AfterCancelItAsksAgain)
{
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Cancel);
    EXPECT_FALSE(form->close());
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::No);
    EXPECT_TRUE(form->close());
}

TEST_F(Closing, AnErrorWhileSavingKeepsItOpen)
{
    form->setChanged(-1);
    files.writeError = RuntimeError(RuntimeError::DiskFull, documentPath);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Yes);
    messages.expectShow("Run-time error '61':\n\nDisk full\n\n" + documentPath, Messages::Icon::Critical);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(form->changed(), -1);
    EXPECT_EQ(owner.loads, 0);
    EXPECT_TRUE(shell.menus["mnuItem"]);
}

TEST_F(Closing, TheOwnersFormLoadFollowsTheSave)
{
    int writesBefore = -1;
    owner.onLoad = [&] { writesBefore = files.writes; };
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Yes);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(writesBefore, 1);
}

TEST_F(Closing, WithoutItsFlagTheOwnerIsNotCalled)
{
    form->setOwner(&owner, 0);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(owner.loads, 0);
}

TEST_F(Closing, WithoutAnOwnerNothingIsCalled)
{
    form->setOwner(nullptr, -1);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(owner.loads, 0);
}

TEST_F(Closing, OnceAgreedClosingAsksNoMore)
{
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::No);
    EXPECT_TRUE(form->queryClose());
    EXPECT_TRUE(form->close());
    EXPECT_EQ(owner.loads, 1);
}

TEST_F(Closing, WhatWasAgreedCanBeTakenBack)
{
    form->setChanged(-1);
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::No);
    EXPECT_TRUE(form->queryClose());
    form->forgetCloseAgreed();
    messages.expectAsk(closeQuestion, Messages::Buttons::YesNoCancel, Messages::Answer::Cancel);
    EXPECT_FALSE(form->close());
}

TEST_F(Closing, TheCloseButtonAsksForTheWindowToClose)
{
    int requests = 0;
    QObject::connect(form, &ConfigForm::closeRequested, form, [&] { ++requests; });
    press(*form, "CloseButton");
    EXPECT_EQ(requests, 1);
}

} // namespace
