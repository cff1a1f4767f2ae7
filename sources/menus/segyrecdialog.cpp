#include "sources/menus/segyrecdialog.h"

#include "sources/segyloader.h"
#include "sources/segymap.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

SegyRecDialog::SegyRecDialog(SegyLoader* loader, QWidget* parent)
    : QDialog(parent), _segyloader(loader), _prikey(loader->priCurValue()), _isort(loader->currentSortKey())
{
    setObjectName("SegyRecDialog");
    setWindowTitle(tr("Seek SEGY Record"));
    _seekPriBox = new QComboBox;
    _seekPriBox->setObjectName("seekPriBox");
    _seekPriBox->addItems(_segyloader->priSortList());
    _seekPriBox->setToolTip(tr("The key that makes an ensemble; another one sorts the index anew"));
    _seekPriBox->setCurrentIndex(_isort.value - 1);
    _seekSpin = new QSpinBox;
    _seekSpin->setObjectName("seekSpin");
    _seekSpin->setToolTip(tr("Value of the primary key; without such a record the last one is shown"));
    _seekSpin->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
    _minmaxLabel = new QLabel;
    _minmaxLabel->setObjectName("minmaxLabel");
    auto* buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttonBox->setObjectName("buttonBox");

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(tr("Primary Key: ")), 0, 0);
    grid->addWidget(_seekPriBox, 0, 1);
    grid->addWidget(new QLabel(tr("     Value: ")), 0, 2);
    grid->addWidget(_seekSpin, 0, 3);
    grid->addWidget(_minmaxLabel, 1, 2, 1, 2);
    grid->addWidget(buttonBox, 2, 0, 1, 4);

    connect(_seekPriBox, qOverload<int>(&QComboBox::currentIndexChanged), this, &SegyRecDialog::changePrimary);
    connect(buttonBox, &QDialogButtonBox::accepted, this, &SegyRecDialog::accept);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    changePrimary(_isort.value - 1);
    _seekSpin->setFocus();
    _seekSpin->selectAll();
}

void SegyRecDialog::changePrimary(int index)
{
    if (index < 0) {
        // The reel's own sort may have no name: its values are in the list all the same.
        const QStringList values = _segyloader->priList();
        showRange(values.isEmpty() ? 0 : values.first().toInt(), values.isEmpty() ? 0 : values.last().toInt());
        return;
    }
    _isort = SortCode(index + 1);
    float least = 0.0f, largest = 0.0f;
    _segyloader->getSortRange(_isort, &least, &largest);
    // An empty map has the range upside down.
    showRange(segyKeyValue(std::min(least, largest)), segyKeyValue(largest));
}

void SegyRecDialog::showRange(int least, int largest)
{
    _seekSpin->setRange(least, largest);
    _seekSpin->setValue(_segyloader->priCurValue());
    _minmaxLabel->setText(tr(" Range: ") + QString::number(least) + tr(" - ") + QString::number(largest));
}

void SegyRecDialog::accept()
{
    _seekSpin->interpretText();
    _prikey = _seekSpin->value();
    QDialog::accept();
}
