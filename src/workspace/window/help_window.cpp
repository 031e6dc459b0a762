#include "workspace/window/help_window.h"

#include "base/error.h"
#include "help/help_texts.h"
#include "help/product.h"
#include "help/topic_page.h"
#include "workspace/window/controls/link_label.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/shown_text.h"
#include "workspace/window/theme.h"
#include "workspace/window/tooltips.h"
#include "workspace/window/window_place.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane {

namespace {

const std::string helpSplitKey = "Corvane.help.split";

QString line(const PageLine& line)
{
    const QString text = qt(line.text).toHtmlEscaped();
    return line.url.empty() ? text : "<a href=\"" + qt(line.url).toHtmlEscaped() + "\">" + text + "</a>";
}

/// Lists are built as tables, so that their markers are part of the text and are selected and read with it.
QString blockHTML(const CorvaneManual::Block& block)
{
    QString html;
    for (const PageLine& each : pageLines(block)) {
        switch (blockStyle(block)) {
        case BlockStyle::heading:
            html += "<h3>" + line(each) + "</h3>";
            break;
        case BlockStyle::bullets:
        case BlockStyle::steps:
            html += "<table cellspacing=\"0\" cellpadding=\"2\"><tr><td width=\"22\">" + qt(each.marker) + "</td><td>" +
                    line(each) + "</td></tr></table>";
            break;
        case BlockStyle::links:
        case BlockStyle::paragraph:
            html += "<p>" + line(each) + "</p>";
            break;
        }
    }
    return html;
}

QString pageHTML(const CorvaneManual::Section& section)
{
    QString html = "<h2>" + qt(section.title).toHtmlEscaped() + "</h2><p style=\"color:" + theme::mutedBeige.name() +
                   "\">" + qt(section.summary).toHtmlEscaped() + "</p>";
    for (const CorvaneManual::Block& block : section.blocks)
        html += blockHTML(block);
    return html;
}

} // namespace

LoadedManual loadedManual(const Resources& resources)
{
    LoadedManual loaded;
    if (const auto failure = failureOf("open the manual", [&] { loaded = loadManual(resources); }))
        loaded = *failure;
    return loaded;
}

CorvaneHelpView::CorvaneHelpView(
    LoadedManual manual, UserDefaults& places, const std::function<void()>& close, QWidget* parent)
    : QWidget(parent), manual_(std::move(manual)), places_(places)
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(makeHeader(close));
    if (const auto* error = std::get_if<std::string>(&manual_)) {
        column->addWidget(makeFailure(*error), 1);
        return;
    }
    column->addWidget(makeTopics(), 1);
    setFocusProxy(query_);
    query_->setFocus();
    showTopics();
}

QWidget* CorvaneHelpView::makeHeader(const std::function<void()>& close)
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(4, 0, 4, 4);
    auto* icon = new QLabel(header);
    icon->setPixmap(theme::icon().pixmap(QSize(40, 40), devicePixelRatioF()));
    auto* title = new QLabel(qt(help_texts::title), header);
    title->setProperty("role", "title");
    auto* tagLine = new QLabel(qt(help_texts::tagLine), header);
    tagLine->setProperty("role", "help");
    auto* texts = new QVBoxLayout;
    texts->addWidget(title);
    texts->addWidget(tagLine);
    auto* button = new QPushButton(qt(help_texts::close), header);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, close);
    row->addWidget(icon);
    row->addLayout(texts, 1);
    row->addWidget(button);
    return header;
}

QWidget* CorvaneHelpView::makeTopics()
{
    split_ = new QSplitter(this);
    split_->setChildrenCollapsible(false);
    auto* left = new QWidget(split_);
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(4, 0, 0, 0);
    query_ = new QLineEdit(left);
    query_->setPlaceholderText(qt(help_texts::searchPlaceholder));
    setTip(*query_, qt(help_texts::searchHelp));
    query_->setAccessibleName(qt(help_texts::searchPlaceholder));
    query_->setClearButtonEnabled(true);
    for (auto* clear : query_->findChildren<QToolButton*>())
        clear->setAccessibleName(tr("Clear the search"));
    count_ = new QLabel(left);
    count_->setProperty("role", "help");
    list_ = new QListWidget(left);
    list_->setAccessibleName(tr("Topics"));
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setWordWrap(true);
    for (QWidget* each : {static_cast<QWidget*>(query_), static_cast<QWidget*>(count_)})
        column->addWidget(each);
    column->addWidget(list_, 1);
    pages_ = new QStackedWidget(split_);
    page_ = new QTextBrowser(pages_);
    page_->setOpenExternalLinks(true);
    page_->setAccessibleName(tr("Topic"));
    page_->document()->setDocumentMargin(16);
    pages_->addWidget(page_);
    pages_->addWidget(makeNothingMatches());
    split_->setStretchFactor(1, 1);
    const QList<int> widths = savedSizes(places_, helpSplitKey, *split_);
    split_->setSizes(widths.isEmpty() ? QList<int>{260, 640} : widths);
    connect(query_, &QLineEdit::textChanged, this, &CorvaneHelpView::search);
    const auto select = [this](const QListWidgetItem* item) {
        if (item == nullptr)
            return;
        state_.selectedID = utf8(item->data(Qt::UserRole).toString());
        showPage(listTopics(std::get<CorvaneManual>(manual_), state_));
    };
    connect(list_, &QListWidget::currentItemChanged, this, select);
    connect(list_, &QListWidget::itemClicked, this, select); // also for the topic that is already shown
    return split_;
}

void CorvaneHelpView::hideEvent(QHideEvent* event)
{
    if (split_ != nullptr)
        saveSizes(places_, helpSplitKey, *split_);
    QWidget::hideEvent(event);
}

QWidget* CorvaneHelpView::makeNothingMatches()
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* title = new QLabel(qt(help_texts::nothingMatches), page);
    title->setProperty("role", "title");
    auto* hint = new QLabel(qt(help_texts::nothingMatchesHint), page);
    hint->setProperty("role", "help");
    auto* all = new QPushButton(qt(help_texts::showAllTopics), page);
    all->setAutoDefault(false);
    connect(all, &QPushButton::clicked, this, [this] { query_->clear(); });
    column->addStretch(1);
    for (QWidget* each : {static_cast<QWidget*>(title), static_cast<QWidget*>(hint), static_cast<QWidget*>(all)})
        column->addWidget(each, 0, Qt::AlignHCenter);
    column->addStretch(2);
    return page;
}

QWidget* CorvaneHelpView::makeFailure(const std::string& error)
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* title = new QLabel(qt(help_texts::notOpened), page);
    title->setProperty("role", "title");
    auto* text = new QLabel(page);
    showMessage(*text, error);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* link = new LinkLabel(qt(help_texts::visitWebsite), QUrl(qt(product::website)), page);
    column->addStretch(1);
    for (QLabel* each : {title, text, static_cast<QLabel*>(link)})
        column->addWidget(each, 0, Qt::AlignHCenter);
    column->addStretch(2);
    return page;
}

void CorvaneHelpView::search(const QString& query)
{
    state_.query = utf8(query);
    showTopics();
}

void CorvaneHelpView::showTopic(const QString& id)
{
    if (list_ == nullptr)
        return;
    query_->clear();
    state_.selectedID = utf8(id);
    showTopics();
}

void CorvaneHelpView::showTopics()
{
    const HelpTopicList topics = listTopics(std::get<CorvaneManual>(manual_), state_);
    count_->setText(qt(topics.countLine));
    const QSignalBlocker blocker(list_);
    list_->clear();
    for (const CorvaneManual::Section* section : topics.topics) {
        auto* item = new QListWidgetItem(qt(section->title), list_);
        item->setData(Qt::UserRole, qt(section->id));
        item->setToolTip(tip(qt(section->summary)));
        if (section == topics.shown)
            list_->setCurrentItem(item);
    }
    showPage(topics);
}

void CorvaneHelpView::showPage(const HelpTopicList& topics)
{
    pages_->setCurrentIndex(topics.shown != nullptr ? 0 : 1);
    if (topics.shown != nullptr && topics.shown != shown_)
        page_->setHtml(pageHTML(*topics.shown));
    shown_ = topics.shown;
}

void CorvaneHelpWindow::show(const QString& topic)
{
    if (!window_) {
        window_ = std::make_unique<QWidget>();
        window_->setObjectName("helpWindow");
        window_->setProperty("dialog", true);
        window_->setWindowTitle(qt(help_texts::title));
        window_->resize(900, 660);
        window_->setMinimumSize(700, 500);
        auto* column = new QVBoxLayout(window_.get());
        column->setContentsMargins(8, 8, 8, 8);
        QWidget* window = window_.get();
        view_ = new CorvaneHelpView(loadedManual(resources_), places_, [window] { window->close(); }, window);
        column->addWidget(view_);
        auto* shortcut = new QShortcut(QKeySequence(QKeySequence::Close), window);
        QObject::connect(shortcut, &QShortcut::activated, window, &QWidget::close);
        auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), window);
        QObject::connect(escape, &QShortcut::activated, window, &QWidget::close);
        centreOnScreen(*window);
    }
    if (!topic.isEmpty())
        view_->showTopic(topic);
    bringToFront(*window_);
}

void bringToFront(QWidget& window)
{
    if (window.isMinimized())
        window.showNormal();
    else
        window.show();
    window.raise();
    window.activateWindow();
}

void centreOnScreen(QWidget& window)
{
    QRect place({}, window.size());
    place.moveCenter(window.screen()->availableGeometry().center());
    window.move(place.topLeft());
}

} // namespace corvane
