#include "host/window/notices.h"

#include "host/window/colors.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace
{

constexpr int lifetime = 8000;     // ms, full strength
constexpr int fading_time = 1500;  // ms, behind that
constexpr int fade_interval = 100; // ms
constexpr int width_limit = 420;   // pixels
constexpr int margin = 12;         // pixels from the corner of the screen
constexpr int bar_width = 4;       // pixels, the colored edge of a notice

} // namespace

Notice::Notice(const QString& source, const QString& text, bool is_fault, QWidget* parent)
    : QWidget(parent), m_source(source), m_text(text), m_fault(is_fault), m_label(new QLabel(this)),
      m_column(new QVBoxLayout)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(bar_width + 8, 6, 4, 6);
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setFixedWidth(width_limit);
    m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_column->addWidget(m_label);
    row->addLayout(m_column);
    auto* button = new QToolButton(this);
    button->setText(QStringLiteral("\u00d7"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(tr("Close the notice"));
    button->setToolTip(button->accessibleName());
    row->addWidget(button, 0, Qt::AlignTop);
    connect(button, &QToolButton::clicked, this, &Notice::closed);
    connect(&m_timer, &QTimer::timeout, this, &Notice::fade);
    m_timer.start(fade_interval);
    m_age.start();
    show_text();
}

bool Notice::says(const QString& source, const QString& text) const
{
    return m_source == source && m_text == text;
}

void Notice::repeat()
{
    ++m_count;
    m_age.start();
    show_text();
}

void Notice::pin()
{
    m_pinned = true;
    m_timer.stop();
    setGraphicsEffect(nullptr);
    show_text();
}

void Notice::offer(const QString& text, std::function<void()> action)
{
    auto* button = new QPushButton(text, this);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, [action = std::move(action)] { action(); });
    m_column->addWidget(button, 0, Qt::AlignLeft);
    pin();
}

void Notice::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (m_pinned)
        emit closed();
    else
        pin();
}

void Notice::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const WindowColors colors = colors_for(palette());
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.fillRect(0, 0, bar_width, height(), m_fault ? colors.fault : colors.emphasis);
    painter.setPen(colors.quiet);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Notice::fade()
{
    const qint64 faded = m_age.elapsed() - lifetime;
    if (faded >= fading_time) {
        m_timer.stop();
        emit closed();
        return;
    }
    if (faded <= 0) {
        setGraphicsEffect(nullptr);
        return;
    }
    auto* effect = new QGraphicsOpacityEffect(this);
    effect->setOpacity(1.0 - double(faded) / fading_time);
    setGraphicsEffect(effect);
}

void Notice::show_text()
{
    QString text = m_source + QStringLiteral(": ") + m_text;
    if (m_count > 1)
        text += tr("  (%1 times)").arg(m_count);
    QPalette own = palette();
    own.setColor(QPalette::WindowText, own.color(QPalette::Text));
    m_label->setPalette(own);
    m_label->setText(text);
    setToolTip(m_pinned ? tr("Click to close") : tr("Click to keep it here"));
}

Notices::Notices()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                           | Qt::WindowDoesNotAcceptFocus),
      m_column(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("Notices"));
    setWindowTitle(tr("Notices"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(4);
    m_column->setSizeConstraint(QLayout::SetFixedSize);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, [this] {
        if (isVisible())
            raise_above_dialogs();
    });
}

Notice* Notices::add(const QString& source, const QString& text, bool is_fault)
{
    for (Notice* notice : qAsConst(m_notices))
        if (notice->says(source, text)) {
            notice->repeat();
            return notice;
        }
    auto* notice = new Notice(source, text, is_fault, this);
    connect(notice, &Notice::closed, this, [this, notice] { remove(notice); });
    m_notices.append(notice);
    m_column->addWidget(notice);
    if (m_notices.size() > most_notices) {
        const auto oldest = std::find_if(m_notices.begin(), m_notices.end(),
                                         [](const Notice* n) { return !n->is_pinned(); });
        remove(oldest == m_notices.end() ? m_notices.first() : *oldest);
    }
    arrange();
    return notice;
}

void Notices::withdraw(const QString& source, const QString& text)
{
    for (Notice* notice : qAsConst(m_notices))
        if (notice->says(source, text)) {
            remove(notice);
            return;
        }
}

void Notices::remove(Notice* notice)
{
    m_notices.removeOne(notice);
    m_column->removeWidget(notice);
    notice->hide();
    notice->deleteLater();
    arrange();
}

void Notices::arrange()
{
    if (m_notices.isEmpty()) {
        hide();
        return;
    }
    for (Notice* notice : qAsConst(m_notices))
        notice->show();
    m_column->activate();
    adjustSize();
    const QWidget* above = QApplication::activeModalWidget();
    const QScreen* screen = above ? above->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry().adjusted(margin, margin, -margin, -margin);
    move(area.right() - width() + 1, area.bottom() - height() + 1);
    raise_above_dialogs();
}

// A modal dialog leaves only windows alone that belong to it. Belonging is a matter of the two
// native windows: as a child of the dialog, the notices would be destroyed with it.
void Notices::raise_above_dialogs()
{
    winId();
    const QWidget* modal = QApplication::activeModalWidget();
    QWindow* above = modal ? modal->windowHandle() : nullptr;
    if (windowHandle()->transientParent() != above) {
        hide();
        windowHandle()->setTransientParent(above);
    }
    show();
    raise();
}
