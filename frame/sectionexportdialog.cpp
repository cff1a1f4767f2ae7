#include "frame/sectionexportdialog.h"

#include "widgets/numberedit.h"
#include "widgets/returnkey.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

SectionExportDialog::SectionExportDialog(const SectionScale& scale,
                                         std::function<SectionPage(const SectionScale&)> layout, QWidget* parent)
    : QDialog(parent), _scale(scale), _layout(std::move(layout))
{
    setObjectName("SectionExportDialog");
    setWindowTitle("Export Section");
    _tpcEdit = makeEdit("tpcEdit", tr("Trace spacing on paper, in traces per centimetre"));
    _tpiEdit = makeEdit("tpiEdit", tr("The same, in traces per inch"));
    _cpsEdit = makeEdit("cpsEdit", tr("Length of a second on paper, in centimetres"));
    _ipsEdit = makeEdit("ipsEdit", tr("The same, in inches"));
    _sizeLabel = new QLabel;
    _sizeLabel->setObjectName("sizeLabel");
    _buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* grid = new QGridLayout(this);
    const struct {
        const char* label;
        NumberEdit* metric;
        const char* metricUnit;
        NumberEdit* inch;
        const char* inchUnit;
    } rows[] = {{"Trace Spacing:", _tpcEdit, "traces/cm", _tpiEdit, "TPI"},
                {"Time Scale:", _cpsEdit, "cm/s", _ipsEdit, "IPS"}};
    int row = 0;
    for (const auto& r : rows) {
        grid->addWidget(new QLabel(r.label), row, 0);
        grid->addWidget(r.metric, row, 1);
        grid->addWidget(new QLabel(r.metricUnit), row, 2);
        grid->addWidget(r.inch, row, 3);
        grid->addWidget(new QLabel(r.inchUnit), row++, 4);
    }
    grid->addWidget(new QLabel("Page:"), row, 0);
    grid->addWidget(_sizeLabel, row++, 1, 1, 4);
    grid->addWidget(_buttons, row, 0, 1, 5);
    connect(_tpcEdit, &NumberEdit::numberEdited, this, [this](double v) {
        _scale.tracesPerCm = v;
        showScale();
    });
    connect(_tpiEdit, &NumberEdit::numberEdited, this, [this](double v) {
        _scale.tracesPerCm = v / cmPerInch;
        showScale();
    });
    connect(_cpsEdit, &NumberEdit::numberEdited, this, [this](double v) {
        _scale.cmPerSecond = v;
        showScale();
    });
    connect(_ipsEdit, &NumberEdit::numberEdited, this, [this](double v) {
        _scale.cmPerSecond = v * cmPerInch;
        showScale();
    });
    new ReturnKey(this, _buttons->button(QDialogButtonBox::Ok));
    connect(_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showScale();
}

NumberEdit* SectionExportDialog::makeEdit(const char* name, const QString& tip)
{
    auto* edit = new NumberEdit(1e-3, 1e5, this);
    edit->setObjectName(name);
    edit->setToolTip(tip);
    return edit;
}

void SectionExportDialog::showScale()
{
    _tpcEdit->setNumber(_scale.tracesPerCm);
    _tpiEdit->setNumber(_scale.tracesPerCm * cmPerInch);
    _cpsEdit->setNumber(_scale.cmPerSecond);
    _ipsEdit->setNumber(_scale.cmPerSecond / cmPerInch);
    const SectionPage page = _layout(_scale);
    _buttons->button(QDialogButtonBox::Ok)->setEnabled(page.isValid());
    if (!page.isValid()) {
        _sizeLabel->setText(tr("A side of the section would be longer than 50 m"));
        return;
    }
    const auto cm = [](double mm) { return QString::number(mm / 10.0, 'f', 1); };
    _sizeLabel->setText(
        tr("%1 x %2 cm, the section %3 x %4 cm")
            .arg(cm(page.width()), cm(page.height()), cm(page.section().width), cm(page.section().height)));
}
