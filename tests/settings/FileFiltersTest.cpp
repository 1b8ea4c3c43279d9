#include "settings/FileFilters.h"

#include <QFileDialog>

#include <gtest/gtest.h>

namespace {

QStringList nameFilters(const char *filters)
{
    QFileDialog dialog;
    setFileFilters(dialog, filters);
    // Without the option the user would see both pairs of parentheses.
    EXPECT_TRUE(dialog.testOption(QFileDialog::HideNameFilterDetails));
    return dialog.nameFilters();
}

TEST(FileFiltersTest, EachHasItsCaptionAndItsPattern)
{
    EXPECT_EQ(nameFilters("Notes (*.txt)|*.txt|Pictures|*.png *.jpg"),
              (QStringList{"Notes (*.txt) (*.txt)", "Pictures (*.png *.jpg)"}));
}

// With "*.*" the toolkit would leave out "README".
TEST(FileFiltersTest, AllFilesAreAlsoThoseWithoutADot)
{
    EXPECT_EQ(nameFilters("All Files (*.*)|*.*"), QStringList{"All Files (*.*) (*)"});
}

TEST(FileFiltersTest, ASeparatorAtTheEndBeginsNoFurtherFilter)
{
    EXPECT_EQ(nameFilters("Notes (*.txt)|*.txt|"), QStringList{"Notes (*.txt) (*.txt)"});
}

TEST(FileFiltersTest, ACaptionMayHoldWhatLooksLikeAPlaceForAnArgument)
{
    EXPECT_EQ(nameFilters("%2 files|*.a"), QStringList{"%2 files (*.a)"});
}

} // namespace
