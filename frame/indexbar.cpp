#include "frame/indexbar.h"

#include "sources/ensemblesource.h"
#include "widgets/namedcontrol.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

constexpr int shareIntervalMs = 100;

IndexBar::IndexBar(QWidget* parent) : QFrame(parent), _timer(new QTimer(this))
{
    setObjectName("indexBar");
    _textLabel = makeControl<QLabel>("textLabel", QString());
    _shareBar = makeControl<QProgressBar>("shareBar", tr("Share of the file that has been read"));
    _buildButton =
        makeControl<QPushButton>("buildButton", tr("Read all trace headers while you go on working"), tr("Build Now"));
    _laterButton = makeControl<QPushButton>("laterButton", tr("Go on without an index"), tr("Not now"));
    _stopButton = makeControl<QPushButton>("stopButton", tr("End the build; nothing changes"), tr("Stop"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 6, 2);
    row->addWidget(_textLabel);
    row->addWidget(_shareBar, 1);
    row->addStretch();
    for (QPushButton* button : {_buildButton, _laterButton, _stopButton}) row->addWidget(button);
    connect(_buildButton, &QPushButton::clicked, this, &IndexBar::build);
    connect(_laterButton, &QPushButton::clicked, this, &QWidget::hide);
    connect(_stopButton, &QPushButton::clicked, this, [this] {
        if (_source) _source->stopIndexBuild();
    });
    connect(_timer, &QTimer::timeout, this, &IndexBar::showShare);
    _timer->setInterval(shareIntervalMs);
    hide();
}

void IndexBar::setSource(EnsembleSource* source)
{
    if (_source) _source->disconnect(this);
    _source = source;
    rest();
    if (!source) return;
    connect(source, &EnsembleSource::indexBuildStarted, this, &IndexBar::showBuild);
    connect(source, &EnsembleSource::indexBuildEnded, this, &IndexBar::rest);
    if (source->isIndexBuilding()) showBuild();
}

void IndexBar::rest()
{
    _timer->stop();
    hide();
}

void IndexBar::offer()
{
    if (!_source || !_source->canBuildIndex()) return;
    _textLabel->setText(tr("The data end here. Previous, Seek and the list of records need an index."));
    _shareBar->hide();
    _stopButton->hide();
    _buildButton->show();
    _laterButton->show();
    show();
}

void IndexBar::build()
{
    if (_source) _source->requestIndex();
}

void IndexBar::showBuild()
{
    _textLabel->setText(tr("Building the index:"));
    _shareBar->setValue(0);
    _shareBar->show();
    _stopButton->show();
    _buildButton->hide();
    _laterButton->hide();
    show();
    _timer->start();
}

void IndexBar::showShare()
{
    if (_source) _shareBar->setValue(_source->indexBuildPercent());
}
