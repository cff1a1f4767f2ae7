#include "display/menus/titles.h"

#include "display/displaylist.h"
#include "display/menus/drawstyle.h"
#include "display/seismicdisplay.h"
#include "widgets/dismissbox.h"
#include "widgets/namedcontrol.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QVBoxLayout>
#include <qwt_text.h>

Titles::Titles(QWidget* parent, const DisplayList* displaylist, QStatusBar* statusBar)
    : QDialog(parent), _displaylist(displaylist), _statusBar(statusBar)
{
    setObjectName("Titles");
    setWindowTitle("Titles");
    auto* column = new QVBoxLayout(this);
    makeStatusTitle(column);
    makeAxisTitle(column);
    makeAreaLineTitle(column);
    column->addStretch();
    column->addWidget(new DismissBox(this, tr("Hides this dialog; all titles stay")));
}

void Titles::makeStatusTitle(QVBoxLayout* column)
{
    _enabBox = makeControl<QCheckBox>("enabBox", tr("Show the title in the status bar of the window"),
                                      "Enable status bar title");
    _titleEdit = makeControl<QLineEdit>("titleEdit", tr("Text of the title in the status bar"));
    _style = new DrawStyle;
    // Plain text: what is typed stands there, also with < and &.
    _titleLabel = makeControl<QLabel>("titleLabel", QString(), this);
    _titleLabel->setTextFormat(Qt::PlainText);
    _titleLabel->hide();
    auto* group = new QGroupBox("Status Bar Title");
    auto* form = new QFormLayout(group);
    form->addRow(_enabBox);
    form->addRow("Title:", _titleEdit);
    form->addRow(_style);
    column->addWidget(group);
    connect(_enabBox, &QCheckBox::stateChanged, this, &Titles::applyTitle);
    connect(_titleEdit, &QLineEdit::textChanged, this, &Titles::changeTitle);
    connect(_style, &DrawStyle::colorChosen, this, &Titles::setColor);
    connect(_style, &DrawStyle::fontChosen, this, &Titles::setFont);
    setColor();
    setFont();
}

void Titles::makeAxisTitle(QVBoxLayout* column)
{
    _titleVEdit = makeControl<QLineEdit>("titleVEdit", tr("Title of the vertical axis of all displays"));
    _titleVBox = makeControl<QCheckBox>("titleVBox", tr("Off: no numbers on the vertical axis, and 0 for each trace"),
                                        "Show correct values on vertical axis");
    _titleVBox->setChecked(true);
    auto* group = new QGroupBox("Vertical Axis Title");
    auto* form = new QFormLayout(group);
    form->addRow("Axis title:", _titleVEdit);
    form->addRow(_titleVBox);
    column->addWidget(group);
    connect(_titleVEdit, &QLineEdit::textEdited, this, &Titles::changeVerticalTitle);
    connect(_titleVBox, &QCheckBox::stateChanged, this, &Titles::showVAxisValues);
    const auto follow = [this](SeismicDisplay* display) {
        connect(display, &SeismicDisplay::ensembleShown, this, &Titles::showAxisTitle, Qt::UniqueConnection);
    };
    for (SeismicDisplay* display : *_displaylist) follow(display);
    connect(_displaylist, &DisplayList::added, this, follow);
}

void Titles::makeAreaLineTitle(QVBoxLayout* column)
{
    _areaBox = makeControl<QCheckBox>("areaBox", tr("Name the data in the title of the window"),
                                      "Show area/line in main title");
    _areaBox->setChecked(true);
    auto* group = new QGroupBox("Area/Line Title");
    (new QVBoxLayout(group))->addWidget(_areaBox);
    column->addWidget(group);
    connect(_areaBox, &QCheckBox::stateChanged, this, &Titles::showALTitle);
}

void Titles::showEvent(QShowEvent* event)
{
    showAxisTitle();
    QDialog::showEvent(event);
}

/// A new file brings the axis title of its own kind.
void Titles::showAxisTitle()
{
    if (_displaylist->isEmpty()) return;
    const QString title = _displaylist->first()->axisTitle(QwtPlot::yLeft).text();
    if (title != _titleVEdit->text()) _titleVEdit->setText(title);  // leaves the cursor of someone who types
}

void Titles::applyTitle(int state)
{
    const bool isOn = state != 0;
    if (isOn == _enableTitle) return;
    _enableTitle = isOn;
    if (!isOn) {
        _statusBar->removeWidget(_titleLabel);
        _titleLabel->setParent(this);
        return;
    }
    _statusBar->insertPermanentWidget(0, _titleLabel, 1000);
    _titleLabel->show();
}

void Titles::changeTitle()
{
    _titleLabel->setText(_titleEdit->text());
    _titleLabel->setToolTip(_titleEdit->text());
    fitTitle();
}

/// The label takes the room of its text and no more: the read-out is painted in what is left. A long text is
/// cut, it must not widen the window.
void Titles::fitTitle()
{
    _titleLabel->setMinimumWidth(1);
    _titleLabel->setMaximumWidth(_titleLabel->sizeHint().width() + 2);
}

void Titles::setColor()
{
    for (QWidget* widget : QList<QWidget*>{_titleLabel, _titleEdit}) {
        QPalette palette = widget->palette();
        palette.setColor(widget == _titleEdit ? QPalette::Text : QPalette::WindowText, _style->color());
        widget->setPalette(palette);
    }
}

void Titles::setFont()
{
    _titleLabel->setFont(_style->textFont());
    _titleEdit->setFont(_style->textFont());
    fitTitle();
}

void Titles::changeVerticalTitle()
{
    for (SeismicDisplay* display : *_displaylist) display->setAxisTitle(_titleVEdit->text());
}

void Titles::showVAxisValues(int state)
{
    for (SeismicDisplay* display : *_displaylist) display->setVAxisValues(state != 0);
}

void Titles::showALTitle(int state)
{
    emit areaLineTitleWanted(state != 0);
}
