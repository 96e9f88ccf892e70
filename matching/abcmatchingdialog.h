// The dialog that finds the room adjustment from reference points touched with a Measurement Tool.
#ifndef MATCHING_ABCMATCHINGDIALOG_H
#define MATCHING_ABCMATCHINGDIALOG_H

#include "src/bsMatrix.h"
#include "src/bsVector.h"
#include "ui_abcmatchingdialog.h"

#include <QDialog>
#include <QTimer>

#include <atomic>
#include <vector>

class IOManager;
class QModelIndex;
class QTableWidgetItem;
class SearchWatch;
class ZetrakParser;
struct BackendVersions;
struct PairingResult;

/// One sample of a tip measurement.
struct Pos3dTime
{
    double time_stamp; ///< of the frame, in seconds
    bsVector position; ///< in mm
};

/// Holds reference points of an object (typed or loaded) and measured points of the same object,
/// pairs them, and computes the rigid transformation between the two lists after every change. Both
/// lists survive closing and re-opening. All lengths are mm.
///
/// `set_ascii_data` and what it calls may run on one other thread, the host's data thread. They
/// touch no widget: their effects travel by the signals, and what they share with the GUI thread is
/// atomic. Everything else belongs to the GUI thread. Host objects are not owned.
class AbcMatchingDialog : public QDialog
{
    Q_OBJECT

public:
    /// Host and versions must outlive the dialog. It starts closed, without points.
    AbcMatchingDialog(IOManager* io_manager, BackendVersions* backend_versions, QWidget* parent);
    ~AbcMatchingDialog();

    // For the 3D view. Indices count from 0; points by a bad index throw std::out_of_range.
    unsigned int getRPCount() const;
    unsigned int getMPCount() const;
    unsigned int getTPCount() const;                 ///< 0 without a valid transformation
    const bsVector& getRP(unsigned int index) const; ///< reference point
    const bsVector& getMP(unsigned int index) const; ///< measured point, in the order measured
    /// The measured point that belongs to this reference point, moved to it.
    const bsVector& getTP(unsigned int index) const;
    /// Whether this row is the current one of its table; -1 asks for no current row.
    bool isRPSelected(int index) const;
    bool isMPSelected(int index) const;
    /// Whether a valid transformation exists, that is whether OK is enabled.
    bool checkApplyTrafo() const;
    /// The last valid result: takes reference points to measured points. Undefined before the
    /// first.
    const bsMatrix& getTransformationMatrix() const;
    bsVector getTranslation() const; ///< its offset
    bsMatrix getOrientation() const; ///< its rotation, with no offset

    /// Entry of the data path. Returns 0; -1 without a parser; -2 for a line that the parser
    /// rejects or that is longer than the line buffer.
    int set_ascii_data(const char* line_type, const char* line);
    /// Takes the measurement a step further by the tool at this index of the last parsed data; any
    /// but the selected tool, and an index without a tool, is passed over.
    void analyse_data(int index);
    /// Whether any pointing device of the last parsed data has a button down.
    bool isWandButtonPressed();
    /// Mean of the samples into `mean_position`. The mean squared distance from it is added to
    /// `variance`, which the caller presets to 0. Without samples both stay as they are.
    void calcMeanPos(double& variance, double& standardDeviation);
    /// The selected tool's tolerance in mm. If the controller does not say, a message of the host
    /// and 1.5.
    double getMaxDeviation();

    /// The measured table, its check box and its Remove button alone.
    void enableDialog(bool enable);
    /// Empties both lists; the tables lose their headers as well.
    void clearPoints();
    /// Whether the points were measured in the order of the reference points. Setting evaluates.
    void setOrdered(bool ordered);
    bool isOrdered() const;
    /// Appends the title and four rows with two decimals to the report.
    void printMatrix(const QString& title, const bsMatrix& m);
    /// Pairs the points, fits, writes the report and decides on OK. A search for their order that
    /// takes long processes events; called from there, this only lets the evaluation that runs
    /// start anew. This dialog may end meanwhile.
    void checkTrafo();

    void addTxtExtension(QString& fileName);   ///< see add_txt_extension()
    bool adjustNumStrTo2Digits(QString& text); ///< see repair_number()

signals:
    /// A button of the tool or of a pointing device is down; with every line for which it is.
    void startTipMea();
    /// After every evaluation.
    void updateRequest();
    /// OK was pressed; the argument is getTransformationMatrix().
    void applyTrafoRequest(const bsMatrix& transformation);
    // From the data path to the slots of like names below.
    void do_updateProgressbar(const double& seconds);
    void do_addMeasuredPoint();
    void do_setTrafoText(const QString& text);

public slots:
    /// Asks the controller for its tools, then opens the dialog and returns what exec() returns.
    /// Without a tool that is calibrated only the measuring is off. A failed query has its message.
    int update_and_exec();
    // Reactions to the widgets, connected by their names. Those that ask first do nothing on No, or
    // if the dialog was closed or ended before the answer.
    void on_pushButton_clearMeaPoints_clicked();
    void on_pushButton_help_clicked();
    void on_tableWidget_referencePoints_clicked(QModelIndex index);
    void on_tableWidget_referencePoints_itemChanged(QTableWidgetItem* item);
    void on_tableWidget_measuredPoints_itemSelectionChanged();
    void on_comboBox_meatool_currentIndexChanged(int index);
    void on_pushButton_removeRefPoint_clicked();
    void on_pushButton_addRefPoint_clicked();
    void on_pushButton_save_clicked();
    void on_w_orderCheckBox_toggled(bool checked);
    void on_w_applyButton_clicked();
    void on_w_removeButton_clicked();
    void on_w_measureButton_clicked();
    void on_w_loadButton_clicked();
    void on_w_closeButton_clicked();
    /// Asks for a file and takes its points in place of the reference points. On failure a message
    /// and no change; without a word if the file cannot be opened.
    void load();
    /// Removes the current row of the measured points, if there is one, without asking.
    void remove();
    /// As OK: emits applyTrafoRequest() and closes.
    void apply();
    /// Emits updateRequest().
    void onRPSelected(int index);
    void onOrderToggled(bool ordered); ///< evaluates
    void closeEvent(QCloseEvent* event);
    void keyPressEvent(QKeyEvent* event);
    /// Since the first sample; shown in hundredths of a second.
    void updateProgressbar(const double& seconds);
    /// The lamp, and whether Measure may be pressed.
    void showTrackingStatus();
    /// Takes the mean position of the last measurement as a new point, or in place of the selected
    /// one if that box is checked, and evaluates. The table holds 1000 points; a further one is
    /// lost and the report says so.
    void addMeasuredPoint();
    /// Replaces the report.
    void setTrafoText(const QString& text);
    void resizeEvent(QResizeEvent* event);

private slots:
    void requestStart();
    void makePendingStart();

private:
    enum
    {
        line_buffer_size = 10240
    };

    // Where the controller does not say.
    static constexpr double default_duration = 1.0;  ///< seconds
    static constexpr double default_deviation = 1.5; ///< mm

    AbcMatchingDialog(const AbcMatchingDialog&);
    AbcMatchingDialog& operator=(const AbcMatchingDialog&);

    // Opening.
    bool isMeaToolAvailable();
    void showAvailability();
    void update_comboBox_meatool();
    bool isTipCalibrated(int tool);

    // Tables and what may be pressed.
    void setup_tableWidget_referencePoints();
    void setup_tableWidget_measuredPoints();
    void addPoint_tableWidget_referencePoints(const bsVector& point);
    void addPoint_tableWidget_measuredPoints(const bsVector& point);
    void setPoint_tableWidget_measuredPoints(const bsVector& point);
    void updateRefPointsVector();
    void replaceReferencePoints(const std::vector<bsVector>& points);
    bool isEditing() const;
    void finishEditing();
    void takeCell(QTableWidgetItem* item);
    bool confirmRemoval(const QString& question);
    QString loadFile(const QByteArray& path);
    bool confirmOverwriting(const QString& file_name);
    void enable_disable_pushButton_save();
    void enableDisableRemoveRefPoint();
    void enableDisableRemoveMeaPoint();
    void enableDisableClearMeaPoints();
    void enableApply(bool enable);

    // Evaluation.
    void evaluate();
    void takeResult(const PairingResult& result);

    // Data path.
    void takeSample(const double* location);
    void loseSamples();
    void finishMeasurement();
    void announce(double variance, double standard_deviation);
    void startMeasurement();

    Ui_AbcMatchingDialogClass ui;
    IOManager* io_manager;
    BackendVersions* backend_versions;
    QWidget* parent_widget;
    std::atomic<int> meatool_count;
    bool meatool_available;
    std::atomic<double> measurement_duration; ///< seconds
    std::atomic<int> meatool_id;              ///< counted from 1; -1 is none
    std::atomic<bool> meatool_tracked;
    QTimer status_timer;
    char* line_buffer;
    ZetrakParser* parser;
    std::vector<Pos3dTime> samples;
    std::atomic<double> mean_position[3];
    bool dialog_live;
    std::atomic<double> max_deviation; ///< mm
    double elapsed_time;               ///< seconds
    int meatool_combo_index;
    bsMatrix transformation;
    std::vector<bsVector> reference_points;
    std::vector<bsVector> measured_points;
    std::vector<bsVector> transformed_points;
    bool samples_lost;               ///< the measurement had too many; for the data path alone
    std::atomic<bool> start_pending; ///< a start is queued, or runs from the queue
    bool start_running;
    int reference_table_reactions; ///< calls of the reaction to a changed cell that have not ended
    unsigned int evaluations;      ///< so far
    SearchWatch* search;           ///< of the evaluation that runs; null if there is none
};

#endif
