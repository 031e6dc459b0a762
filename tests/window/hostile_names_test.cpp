#include "gui.h"
#include "workspace/shot_facts.h"
#include "workspace/window/panels/cut_panel.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QTableView>
#include <fstream>

namespace corvane {
namespace {

using namespace test;

/// Every control that turns or breaks a line, between letters, and how that is drawn.
const std::string controls =
    "x\u061C\u200E\u200F\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069\u2028\u2029\u0085"
    "\n\r\t\uFDD0\uFDD1\uFFFCx";
const QString drawnMarks = "x⇇⇉⇇⇉⇇⇄⇉⇇⇉⇇⇄⇄↵↵↵↵↵⇥���x";

/// Names that are markup, name a file that is there, and turn and break the line.
class Hostile {
public:
    const ScratchFolder folder;

    Hostile() { std::ofstream(folder.file("secret.png")) << "picture"; }

    [[nodiscard]] std::string name(const std::string& what) const
    {
        return "<b>" + what + "</b><img src=\"" + folder.file("secret.png") + "\">&lt;" + controls;
    }
    /// The name as an attribute in XML.
    [[nodiscard]] std::string written(const std::string& what) const
    {
        const QString text = qt(name(what)).toHtmlEscaped();
        return "\"" + utf8(QString(text).replace("\n", "&#10;").replace("\r", "&#13;").replace("\t", "&#9;")) + "\"";
    }
    /// A project in which everything that has a name has such a one, also a clip without a file.
    [[nodiscard]] std::string project() const
    {
        std::string angles;
        for (const std::string id : {"A", "B", "C"})
            angles += "<mc-angle name=" + written("angle " + id) + " angleID=\"" + id + "\">" + clip("0s", "40s") +
                      "<spine><audition>" + clip("0s", "4s", "lost") + "</audition></spine></mc-angle>";
        std::string xml = document({.angles = angles});
        for (const auto& [usual, what] : {std::pair("Camera 1", "camera"), {"Concert", "project"}, {"Lost", "asset"}})
            xml = replaced(xml, std::string("\"") + usual + "\"", written(what));
        return xml;
    }
};

/// Collects what is read on the screen, or would be with the pointer at a place, and finds markup in it.
class Reader {
public:
    QStringList texts;

    void read(QWidget& root)
    {
        QList<QWidget*> widgets = root.findChildren<QWidget*>();
        widgets << &root;
        for (QWidget* widget : widgets) {
            for (const char* property : {"windowTitle", "text", "title"}) // of windows, labels and buttons, groups
                if (qobject_cast<QLineEdit*>(widget) == nullptr)
                    texts << readText(widget->property(property).toString());
            for (const QString& text : {widget->toolTip(), widget->statusTip(), widget->whatsThis()})
                readTip(text);
            if (widget->isVisible())
                for (const int part : {1, 2, 3})
                    hover(*widget, QPoint(widget->width() * part / 4, widget->height() / 2));
            if (auto* label = qobject_cast<QLabel*>(widget))
                EXPECT_NE(label->textFormat(), Qt::AutoText) << utf8(label->text());
            else if (auto* box = qobject_cast<QComboBox*>(widget))
                readItems(*box->view());
            else if (auto* list = qobject_cast<QAbstractItemView*>(widget))
                readItems(*list);
        }
        for (const QAction* action : root.findChildren<QAction*>())
            texts << action->text() << action->toolTip();
    }
    /// No control is drawn, and at least `count` texts hold the name with its marks.
    void expectMarked(const std::string& what, qsizetype count) const
    {
        const QString drawnAsMarks = qt(controls).remove('x').remove('\n');
        EXPECT_GE(texts.filter("<b>" + qt(what)).filter(drawnMarks).size(), count) << what;
        for (const QString& text : texts) {
            EXPECT_LE(text.count('\n'), 3) << "only the program begins lines: " << utf8(text);
            for (const QChar c : drawnAsMarks)
                EXPECT_FALSE(text.contains(c)) << c.unicode() + 0 << " in " << utf8(text);
        }
    }

private:
    void readItems(QAbstractItemView& list)
    {
        const QAbstractItemModel& model = *list.model();
        for (int cell = 0; cell < std::min(3, model.rowCount()) * model.columnCount(); ++cell) {
            const QModelIndex index = model.index(cell / model.columnCount(), cell % model.columnCount());
            texts << index.data().toString();
            for (const int role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::WhatsThisRole})
                readTip(index.data(role).toString());
            if (list.isVisible())
                hover(*list.viewport(), list.visualRect(index).center());
        }
    }
    void hover(QWidget& widget, const QPoint& place)
    {
        for (QWidget* before : QApplication::topLevelWidgets())
            delete (before->inherits("QTipLabel") ? before : nullptr); // it would linger for a moment
        (void)tipAt(widget, place);
        for (const QWidget* shown : QApplication::topLevelWidgets())
            EXPECT_FALSE(shown->inherits("QTipLabel") && shown->width() > 800) << utf8(QToolTip::text());
        if (QToolTip::isVisible())
            readTip(QToolTip::text());
    }
    void readTip(const QString& tip)
    {
        EXPECT_FALSE(Qt::mightBeRichText(tip) && (tip.contains("<b>") || tip.contains("<img"))) << utf8(tip);
        QTextDocument document;
        document.setHtml(Qt::mightBeRichText(tip) ? tip : tip.toHtmlEscaped().replace("\n", "<br>"));
        texts << document.toPlainText();
    }
};

/// Everything that assistive technology reads of the window.
QString spoken(QAccessibleInterface* item)
{
    QString all;
    if (item == nullptr)
        return all;
    for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help})
        all += item->text(kind) + "|";
    for (int i = 0; i < std::min(20, item->childCount()); ++i)
        all += spoken(item->child(i));
    return all;
}

TEST(HostileNames, AreNeitherMarkupNorTurnOrBreakALineWhereverTheyStand)
{
    const Hostile hostile;
    Gui gui;
    gui.window().resize(1600, 2600);
    gui.view().importXML(hostile.project());
    ASSERT_NE(gui.state().loaded, nullptr) << gui.state().error.value_or("");
    gui.view().addSection();
    gui.view().edit([&](WorkspaceState& state) {
        state.presetName = hostile.name("preset");
        state.settings.sections[0].name = hostile.name("section");
    });
    gui.view().savePreset(ContentView::PresetSave::asNew);
    gui.view().generateRoughEdit();
    for (const Qt::Key sheet : {Qt::Key_T, Qt::Key_L})
        gui.key(sheet);
    auto* cuts = gui.window().findChild<CutPanel*>()->findChild<QTableView*>();
    cuts->setCurrentIndex(cuts->model()->index(0, 1));
    QTest::keyClick(cuts, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(utf8(QApplication::clipboard()->text()), cutLines(gui.view(), {0}));
    gui.view().edit([&](WorkspaceState& state) {
        state.status = hostile.name("status");
        state.sessionSaveError = hostile.name("failure");
    });
    gui.account.inbox.setImportError(hostile.name("refusal"));
    gui.window().alerts().showAlert(hostile.name("alert"), hostile.name("path"));
    Reader reader;
    QString heard;
    for (int alerts = 0; alerts < 2; ++alerts) {
        ASSERT_NE(gui.alert(), nullptr);
        reader.read(gui.window());
        heard += spoken(QAccessible::queryAccessibleInterface(&gui.window())) +
                 spoken(QAccessible::queryAccessibleInterface(gui.alert()));
        QTest::keyClick(gui.alert(), Qt::Key_Return);
    }
    for (const char* id : {"angle A", "angle B", "angle C"})
        reader.expectMarked(id, 30);
    for (const char* what : {"project", "asset", "preset", "status", "failure", "refusal", "alert", "path"}) {
        reader.expectMarked(what, 1);
        EXPECT_TRUE(heard.contains(qt(hostile.name(what)))) << what << " is read aloud as it is";
    }
    for (const char* drawn : {"⇇", "<p>"})
        EXPECT_FALSE(heard.contains(drawn)) << utf8(heard.mid(heard.indexOf(drawn) - 300, 400));
    EXPECT_EQ(gui.settings().sections[0].name, hostile.name("section"));
}

TEST(HostileNames, TakeNoKeysFromTheWindow)
{
    Gui gui(document({.angles = angle("&amp;Generate", clip("0s", "40s")) + angle("&amp;Go", clip("0s", "40s"))}));
    gui.activate();
    gui.key(Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&gui] { return !gui.state().cuts().empty(); })) << "the button is pressed";
}

TEST(HostileNames, OfAnyLengthWidenNothing)
{
    Gui gui(threeCameras);
    gui.view().generateRoughEdit();
    Gui::settle();
    const int usual = gui.window().minimumSizeHint().width();
    const auto same = [](char c) { return std::string(100'000, c); };
    const std::string xml = document({.angles = angle(same('a'), clip("0s", "40s")) + angle("b", clip("0s", "20s"))});
    gui.view().importXML(replaced(replaced(xml, "Concert", same('p')), "Camera 1", same('c')));
    gui.view().generateRoughEdit();
    gui.view().edit([&](WorkspaceState& state) {
        state.status = state.presetNotice = same('s');
        state.sessionSaveError = same('e');
    });
    gui.account.inbox.setImportError(same('W'));
    ASSERT_NE(gui.alert(), nullptr);
    const auto* sentence = gui.alert()->findChild<QLabel*>("qt_msgbox_label");
    EXPECT_LE(sentence->sizeHint().width(), sentence->width() + 1) << "no letter is cut off; newer toolkits round up";
    EXPECT_LE(gui.window().minimumSizeHint().width(), usual);
    for (const QScrollArea* area : gui.window().findChildren<QScrollArea*>())
        EXPECT_LE(area->widget()->width(), area->viewport()->width());
    Reader reader;
    reader.read(gui.window());
    for (const QString& text : reader.texts)
        EXPECT_LE(text.size(), 1300);
}

} // namespace
} // namespace corvane
