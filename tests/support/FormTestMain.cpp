#include "app/Application.h"
#include "tests/support/Gestures.h"
#include "tests/support/TestSurroundings.h"

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    isolateTests();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Application application(argc, argv, currentMessages());
    // Menus and combo boxes appear at once instead of being drawn in steps that a test would have to wait for.
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    return RUN_ALL_TESTS();
}
