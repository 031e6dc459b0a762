#pragma once

#include "help/manual.h"
#include "help/topic_search.h"
#include "platform/resources.h"
#include "platform/user_defaults.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <variant>

namespace corvane {

/// The manual, or the reason why it cannot be shown.
using LoadedManual = std::variant<CorvaneManual, std::string>;
[[nodiscard]] LoadedManual loadedManual(const Resources& resources);

/// A searchable list of topics, and the topic that is shown.
class CorvaneHelpView : public QWidget {
    Q_OBJECT
public:
    /// `places`, which must outlive the view, stores the position of the divider between topics and text.
    CorvaneHelpView(
        LoadedManual manual, UserDefaults& places, const std::function<void()>& close, QWidget* parent = nullptr);

    /// Ends the search and shows the topic with this id, if there is one.
    void showTopic(const QString& id);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeHeader(const std::function<void()>& close);
    QWidget* makeTopics();
    QWidget* makeFailure(const std::string& error);
    QWidget* makeNothingMatches();
    void search(const QString& query);
    void showTopics();
    void showPage(const HelpTopicList& topics);

    LoadedManual manual_;
    UserDefaults& places_;
    QSplitter* split_ = nullptr;
    HelpTopics state_;
    QLineEdit* query_ = nullptr;
    QLabel* count_ = nullptr;
    QListWidget* list_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    QTextBrowser* page_ = nullptr;
    const CorvaneManual::Section* shown_ = nullptr;
};

/// The help window that the menu opens: created when it is first needed, then kept with its search.
class CorvaneHelpWindow {
public:
    /// Both arguments must outlive the window.
    CorvaneHelpWindow(const Resources& resources, UserDefaults& places) : resources_(resources), places_(places) {}

    /// Shows the window in front of the others; at a topic, when one is named.
    void show(const QString& topic = {});

private:
    const Resources& resources_;
    UserDefaults& places_;
    std::unique_ptr<QWidget> window_;
    CorvaneHelpView* view_ = nullptr;
};

/// Brings a window to the front and gives it the keyboard.
void bringToFront(QWidget& window);

/// Centres a window that has not been shown yet on its screen.
void centreOnScreen(QWidget& window);

} // namespace corvane
