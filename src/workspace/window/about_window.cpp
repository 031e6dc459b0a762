#include "workspace/window/about_window.h"

#include "workspace/window/controls/link_label.h"
#include "workspace/window/help_window.h"
#include "workspace/window/qt_text.h"
#include "workspace/window/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace corvane {

namespace {

constexpr int textWidth = 420;

QLabel* centred(const QString& text, const char* role, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter);
    label->setProperty("role", role);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    label->setMinimumHeight(label->heightForWidth(textWidth));
    return label;
}

QLabel* picture(const QPixmap& pixmap, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setPixmap(pixmap);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

} // namespace

CorvaneAboutView::CorvaneAboutView(
    const product::BundleInfo& bundle, const std::function<void()>& openManual, const std::function<void()>& close,
    QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(picture(theme::icon().pixmap(QSize(96, 96), devicePixelRatioF()), this));
    column->addWidget(centred(qt(product::name), "name", this));
    column->addWidget(centred(qt(product::versionLine(bundle)), "help", this));
    column->addWidget(centred(qt(product::about), "", this));
    column->addWidget(picture(QPixmap(":/corvane/publisher.png"), this));
    column->addWidget(centred(qt(product::publisher), "heading", this));
    auto* link = new LinkLabel(qt(product::websiteLink), QUrl(qt(product::website)), this);
    link->setAlignment(Qt::AlignHCenter);
    column->addWidget(link);
    column->addWidget(centred(qt(product::contribution), "help", this));
    column->addWidget(centred(qt(product::noSupport), "help", this));
    auto* buttons = new QHBoxLayout;
    auto* manual = new QPushButton(tr("Open &manual"), this);
    auto* done = new QPushButton(tr("&Close"), this);
    for (QPushButton* button : {manual, done}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    column->addLayout(buttons);
    setFixedWidth(textWidth + 40);
    connect(manual, &QPushButton::clicked, this, openManual);
    connect(done, &QPushButton::clicked, this, close);
}

void CorvaneAboutWindow::show()
{
    if (!window_) {
        window_ = std::make_unique<QWidget>(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
        window_->setObjectName("aboutWindow");
        window_->setProperty("dialog", true);
        window_->setWindowTitle(QObject::tr("About Corvane"));
        QWidget* window = window_.get();
        auto* column = new QVBoxLayout(window);
        column->setSizeConstraint(QLayout::SetFixedSize);
        column->addWidget(new CorvaneAboutView(bundle_, openManual_, [window] { window->close(); }, window));
        auto* shortcut = new QShortcut(QKeySequence(QKeySequence::Close), window);
        QObject::connect(shortcut, &QShortcut::activated, window, &QWidget::close);
        window->adjustSize();
        centreOnScreen(*window);
    }
    bringToFront(*window_);
}

} // namespace corvane
