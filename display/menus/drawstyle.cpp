#include "display/menus/drawstyle.h"

#include "widgets/namedcontrol.h"

#include <QColorDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

static QLabel* makeSample(const char* name)
{
    auto* label = makeControl<QLabel>(name, QString());
    label->setFrameShape(QFrame::StyledPanel);
    label->setAutoFillBackground(true);
    // A large font must not push the dialog off the screen: the tip tells what doesn't fit.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance('x') * 30);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

DrawStyle::DrawStyle(QWidget* parent)
    : QWidget(parent), _colorLabel(makeSample("colorLabel")), _fontLabel(makeSample("fontLabel"))
{
    auto* colorButton = makeControl<QPushButton>("colorButton", tr("Choose the color"), "Color");
    auto* fontButton = makeControl<QPushButton>("fontButton", tr("Choose the font"), "Font");
    for (QPushButton* button : {colorButton, fontButton}) button->setAutoDefault(false);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(colorButton, 0, 0);
    grid->addWidget(_colorLabel, 0, 1);
    grid->addWidget(fontButton, 1, 0);
    grid->addWidget(_fontLabel, 1, 1);
    grid->setColumnStretch(1, 1);
    connect(colorButton, &QPushButton::clicked, this, &DrawStyle::chooseColor);
    connect(fontButton, &QPushButton::clicked, this, &DrawStyle::chooseFont);
    _font = font();
    showColor();
    showFont();
}

void DrawStyle::showColor()
{
    QPalette palette = _colorLabel->palette();
    palette.setColor(QPalette::Window, _color);
    _colorLabel->setPalette(palette);
    _colorLabel->setToolTip(_color.name());
}

void DrawStyle::showFont()
{
    _fontLabel->setFont(_font);
    _fontLabel->setText(_font.key());
    _fontLabel->setToolTip(_font.key());
}

void DrawStyle::chooseColor()
{
    const QColor color = QColorDialog::getColor(_color, this);
    if (!color.isValid()) return;
    _color = color;
    showColor();
    emit colorChosen(color);
}

void DrawStyle::chooseFont()
{
    bool isAccepted = false;
    const QFont font = QFontDialog::getFont(&isAccepted, _font, this);
    if (!isAccepted) return;
    _font = font;
    showFont();
    emit fontChosen(font);
}
