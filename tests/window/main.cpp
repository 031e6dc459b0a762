#include "workspace/window/accessible_widgets.h"
#include "workspace/window/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QFont font = QApplication::font();
    font.setFamily("DejaVu Sans"); // a font that every desktop has, because what fits depends on the font
    QApplication::setFont(font);
    corvane::theme::apply(application);
    corvane::installAccessibleWidgets();
    return RUN_ALL_TESTS();
}
