// The matching dialog's evaluation: from the two point lists to report, result and OK.
#include "matching/abcmatchingdialog.h"

#include "matching/pairingreport.h"
#include "matching/searchwatch.h"
#include "pairing/pointpairing.h"

#include <QPointer>

namespace
{

// The orders of so few points are compared in no time.
const std::size_t most_points_searched_at_once = 8;

typedef const double (*PointRows)[3];

/// The points as rows of three doubles, which is how a vector of them lies in memory.
PointRows rows(const std::vector<bsVector>& points)
{
    static_assert(sizeof(bsVector) == sizeof(double[3]), "a point is three doubles");
    return reinterpret_cast<PointRows>(points.data());
}

/// Takes copies of the points, because those of the dialog may change or end during the search.
void pair_points(std::vector<bsVector> reference, std::vector<bsVector> measured,
                 bool preserve_order, SearchObserver* observer, PairingResult* result)
{
    const bool is_short = reference.size() <= most_points_searched_at_once;
    evaluate_pairing(rows(reference), reference.size(), rows(measured), measured.size(),
                     preserve_order, result, is_short ? nullptr : observer);
}

} // namespace

void AbcMatchingDialog::checkTrafo()
{
    ++evaluations;
    enableApply(false);
    transformed_points.clear();
    if (search)
        search->set_outdated();
    else
        evaluate();
}

/// Until it stood through a search that nothing has overtaken.
void AbcMatchingDialog::evaluate()
{
    const QPointer<AbcMatchingDialog> self(this);
    QWidget* const order_box = ui.w_orderCheckBox;
    SearchWatch watch(this);
    search = &watch;
    PairingResult result;
    do {
        watch.begin();
        pair_points(reference_points, measured_points, isOrdered(), &watch, &result);
    } while (self && watch.is_outdated());
    if (!self) {
        order_box->deleteLater(); // left over by the destructor
        return;
    }
    search = nullptr;
    takeResult(result);
}

void AbcMatchingDialog::takeResult(const PairingResult& result)
{
    if (result.status == pairing_ok) {
        for (int i = 0; i < result.count; ++i)
            transformed_points.push_back(bsVector(result.transformed[i]));
        // Read as column-major, the row-major array is its own transpose.
        bsMatrix(&result.T_reference_measured[0][0]).getTranspose(transformation);
        transformation.fastInvert();
        enableApply(true);
    }
    setTrafoText(pairing_report(result));
    emit updateRequest();
}

void AbcMatchingDialog::on_w_orderCheckBox_toggled(bool checked) { onOrderToggled(checked); }

void AbcMatchingDialog::onOrderToggled(bool) { checkTrafo(); }

void AbcMatchingDialog::setOrdered(bool ordered)
{
    const QPointer<AbcMatchingDialog> self(this);
    ui.w_orderCheckBox->setChecked(ordered);
    if (self)
        checkTrafo();
}

bool AbcMatchingDialog::isOrdered() const { return ui.w_orderCheckBox->isChecked(); }

bool AbcMatchingDialog::checkApplyTrafo() const { return ui.w_applyButton->isEnabled(); }

const bsMatrix& AbcMatchingDialog::getTransformationMatrix() const { return transformation; }

bsVector AbcMatchingDialog::getTranslation() const { return transformation.getColumn(3); }

bsMatrix AbcMatchingDialog::getOrientation() const
{
    bsMatrix orientation(transformation);
    orientation.setColumn(3, bsVector(0.0, 0.0, 0.0), 1.0);
    return orientation;
}

void AbcMatchingDialog::printMatrix(const QString& title, const bsMatrix& m)
{
    QString text = QString::fromLatin1("\n\n") + title + QString::fromLatin1(" :");
    for (int r = 0; r < 4; ++r) {
        text += QString::fromLatin1("\n|\t%1\t%2\t%3\t%4\t|\n")
                    .arg(m.data(r, 0), 0, 'f', 2)
                    .arg(m.data(r, 1), 0, 'f', 2)
                    .arg(m.data(r, 2), 0, 'f', 2)
                    .arg(m.data(r, 3), 0, 'f', 2);
    }
    setTrafoText(ui.w_trafoText->toPlainText() + text);
}
