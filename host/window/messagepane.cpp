#include "host/window/messagepane.h"

#include "host/window/colors.h"

#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

MessagePane::MessagePane(QWidget* parent) : QWidget(parent), m_view(new QPlainTextEdit(this))
{
    m_view->setObjectName(QStringLiteral("messages"));
    m_view->setReadOnly(true);
    m_view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_view->setTabChangesFocus(true);
    m_view->setMaximumBlockCount(most_messages);
    m_view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_view->setPlaceholderText(tr("Messages of the modules appear here."));
    auto* title = new QLabel(tr("M&essages"), this);
    title->setBuddy(m_view);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 0);
    layout->addWidget(title);
    layout->addWidget(m_view);
}

void MessagePane::add(const QString& text, bool is_fault)
{
    if (m_messages.size() == most_messages)
        m_messages.removeFirst();
    m_messages.append({text, is_fault});
    show_message(m_messages.last());
}

void MessagePane::clear()
{
    m_messages.clear();
    m_view->clear();
}

QString MessagePane::text() const { return m_view->toPlainText() + QLatin1Char('\n'); }

void MessagePane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !m_view)
        return;
    m_view->clear();
    for (const Message& message : qAsConst(m_messages))
        show_message(message);
}

void MessagePane::show_message(const Message& message)
{
    QTextCharFormat format;
    if (message.is_fault)
        format.setForeground(colors_for(palette()).fault);
    m_view->setCurrentCharFormat(format);
    m_view->appendPlainText(message.text);
}
