#include "host/window/mainwindow.h"

#include "host/window/colors.h"
#include "host/window/firstvisit.h"
#include "host/window/hosticon.h"
#include "host/window/messagepane.h"
#include "host/window/trafficpane.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTime>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int fault_level = 1;
constexpr QSize initial_size(1040, 720);

const char fault_property[] = "isFault";
const char geometry_key[] = "window/geometry";
const char visit_key[] = "visit/dismissed";
const char time_format[] = "HH:mm:ss.zzz";

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(tr("Tracking Control"));
    setWindowIcon(host_icon());
    resize(initial_size);
    create_first_visit();
    create_panes();
    create_own_menus();
    m_controller_label = create_status_label();
    m_data_label = create_status_label();
    m_mode_label = create_status_label();
    m_mode_label->hide();
    m_restart_button = new QPushButton(tr("&Start the simulator again"), this);
    m_restart_button->hide();
    statusBar()->addPermanentWidget(m_restart_button);
    connect(m_restart_button, &QPushButton::clicked, this, &MainWindow::restart_wanted);
}

void MainWindow::add_element(const _GuiElement& element)
{
    ModuleMenu& place = menu_for(element);
    const auto next = std::upper_bound(
        place.elements.begin(), place.elements.end(), element,
        [](const _GuiElement& a, const _GuiElement& b) { return a.action_rank < b.action_rank; });
    place.menu->insertAction(next == place.elements.end() ? nullptr : next->action, element.action);
    place.elements.insert(next, element);
}

void MainWindow::remove_elements()
{
    for (const ModuleMenu& place : qAsConst(m_module_menus))
        delete place.menu;
    m_module_menus.clear();
}

void MainWindow::add_message(const QString& category, const QString& source, int level,
                             const QString& text)
{
    m_messages->add(
        QStringLiteral("%1  %2 (%3)  %4")
            .arg(QTime::currentTime().toString(QLatin1String(time_format)), source, category, text),
        level >= fault_level);
    if (QApplication::activeModalWidget())
        m_notices.add(source, text, level >= fault_level);
}

void MainWindow::add_exchange(const Exchange& exchange)
{
    m_traffic->add(exchange);
    m_first_visit->notice_exchange(exchange);
    // Of a query that fails the module speaks itself.
    const bool changes = exchange.request.startsWith("set ") || exchange.request.startsWith("do ");
    if (changes && !exchange.reply.ok() && QApplication::activeModalWidget())
        m_notices.add(tr("Controller"),
                      QStringLiteral("%1 (%2): %3")
                          .arg(TrafficModel::verdict_text(exchange.reply),
                               QString::fromLatin1(exchange.reply.text),
                               QString::fromLatin1(exchange.request)),
                      true);
}

void MainWindow::set_controller_text(const StatusText& status)
{
    m_controller_label->setText(status.text);
    color_status(m_controller_label, status.is_fault);
}

void MainWindow::set_data_text(const StatusText& status)
{
    m_data_label->setText(status.text);
    color_status(m_data_label, status.is_fault);
}

void MainWindow::offer_restart(bool offered)
{
    if (m_restart_button->isVisibleTo(this) == offered)
        return;
    m_restart_button->setVisible(offered);
    const QString source = tr("Controller"), text = tr("The tracking simulator has ended.");
    m_notices.withdraw(source, text);
    if (offered && QApplication::activeModalWidget())
        m_notices.add(source, text, true)->offer(tr("Start the simulator again"), [this] {
            emit restart_wanted();
        });
}

void MainWindow::remember(bool fresh)
{
    m_remembers = true;
    const QSettings settings;
    if (!fresh)
        restoreGeometry(settings.value(geometry_key).toByteArray());
    m_visit_action->setChecked(fresh || !settings.value(visit_key).toBool());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    if (!m_remembers)
        return;
    QSettings settings;
    settings.setValue(geometry_key, saveGeometry());
    settings.setValue(visit_key, !m_visit_action->isChecked());
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (QLabel* label : {m_controller_label, m_data_label})
        if (label)
            color_status(label, label->property(fault_property).toBool());
}

void MainWindow::color_status(QLabel* label, bool is_fault)
{
    label->setProperty(fault_property, is_fault);
    QPalette own = palette();
    if (is_fault)
        own.setColor(QPalette::WindowText, colors_for(own).status);
    label->setPalette(own);
}

void MainWindow::set_mode_text(const QString& text)
{
    m_mode_label->setText(text);
    m_mode_label->setVisible(!text.isEmpty());
}

void MainWindow::create_panes()
{
    auto* splitter = new QSplitter(Qt::Vertical, this);
    m_messages = new MessagePane(splitter);
    m_traffic = new TrafficPane(splitter);
    connect(m_traffic, &TrafficPane::save_wanted, this, [this] { save(m_traffic->text()); });
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 3);
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_first_visit);
    layout->addWidget(splitter, 1);
    setCentralWidget(content);
}

void MainWindow::create_first_visit()
{
    m_first_visit = new FirstVisit(this);
    m_visit_action = new QAction(tr("&First visit"), this);
    m_visit_action->setCheckable(true);
    m_first_visit->hide();
    connect(m_visit_action, &QAction::toggled, m_first_visit, &QWidget::setVisible);
    connect(m_first_visit, &FirstVisit::dismissed, m_visit_action,
            [this] { m_visit_action->setChecked(false); });
    // The panel lies under the dialogs, so they carry the next hint above themselves.
    connect(m_first_visit, &FirstVisit::advanced, this, [this] {
        const QString hint = m_first_visit->hint();
        if (m_visit_action->isChecked() && !hint.isEmpty() && QApplication::activeModalWidget())
            m_notices.add(tr("First visit"), hint, false);
    });
}

void MainWindow::create_own_menus()
{
    QMenu* file_menu = menuBar()->addMenu(tr("&File"));
    file_menu->addAction(tr("C&lear panes"), this, [this] {
        m_messages->clear();
        m_traffic->clear();
    });
    file_menu->addAction(tr("Save &messages..."), this, [this] { save(m_messages->text()); });
    file_menu->addAction(tr("Save &traffic..."), this, [this] { save(m_traffic->text()); });
    file_menu->addSeparator();
    file_menu->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    m_help_menu = menuBar()->addMenu(tr("&Help"));
    m_help_menu->addAction(m_visit_action);
    m_help_menu->addAction(tr("&About"), this, &MainWindow::show_about);
}

QLabel* MainWindow::create_status_label()
{
    auto* label = new QLabel(this);
    label->setContentsMargins(4, 0, 8, 0);
    statusBar()->addWidget(label);
    return label;
}

MainWindow::ModuleMenu& MainWindow::menu_for(const _GuiElement& element)
{
    for (ModuleMenu& place : m_module_menus)
        if (place.menu->title() == element.menu)
            return place;
    auto* menu = new QMenu(element.menu, this);
    menuBar()->insertMenu(menu_after(element.menu_rank), menu);
    const auto next =
        std::upper_bound(m_module_menus.begin(), m_module_menus.end(), element.menu_rank,
                         [](int rank, const ModuleMenu& m) { return rank < m.rank; });
    return *m_module_menus.insert(next, {menu, element.menu_rank, {}});
}

QAction* MainWindow::menu_after(int rank) const
{
    for (const ModuleMenu& place : m_module_menus)
        if (place.rank > rank)
            return place.menu->menuAction();
    return m_help_menu->menuAction();
}

void MainWindow::save(const QString& text)
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save"), QString(),
                                                      tr("Text files (*.txt);;All files (*)"));
    if (name.isEmpty())
        return;
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        QMessageBox::warning(this, tr("Save"), file.errorString());
}

void MainWindow::show_about()
{
    QMessageBox::about(this, tr("About"),
                       tr("Front-end for a tracking controller.\n\n"
                          "Loads modules, passes their texts to the controller and delivers its "
                          "tracking data to them."));
}
