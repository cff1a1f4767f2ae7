#include "display/menus/imagedialog.h"

#include "display/displaylist.h"
#include "display/images/imagestorage.h"
#include "display/seismicdisplay.h"
#include "widgets/namedcontrol.h"
#include "widgets/numberedit.h"
#include "widgets/pictureexport.h"
#include "widgets/scrollroom.h"
#include "widgets/waitcursor.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

ImageDialog::ImageDialog(ImageStorage* imgstore, const DisplayList* displaylist, QWidget* parent)
    : QDialog(parent), _imgstore(imgstore), _displaylist(displaylist), _timer(new QTimer(this))
{
    setObjectName("ImageDialog");
    setWindowTitle("Image Viewer");
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    _groupBox1 = makeSaveGroup();
    _groupBox2 = makeViewGroup();
    _groupBox3 = makeMovieGroup();
    _groupBox4 = makeSelectGroup();
    _groupBox5 = makeFileGroup();
    for (QGroupBox* group : {_groupBox1, _groupBox2, _groupBox3, _groupBox4, _groupBox5}) layout->addWidget(group);
    layout->addStretch();
    layout->addWidget(new QLabel("Mouse:   MB2 Down & Move: Change image,  Wheel: Change image,  <ctrl>MB2: Pan"));
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(new ScrollRoom(page));
    connectControls();
    checkCount();
}

static QSlider* makeSlider(const char* name, const QString& tip, int least, int largest, int step)
{
    auto* slider = makeControl<QSlider>(name, tip, Qt::Horizontal);
    slider->setRange(least, largest);
    slider->setSingleStep(step);
    slider->setPageStep(10 * step);
    return slider;
}

/// A group of rows of controls.
static QGroupBox* makeGroup(const char* name, const QString& title, const QList<QList<QWidget*>>& rows)
{
    auto* group = new QGroupBox(title);
    group->setObjectName(name);
    auto* layout = new QVBoxLayout(group);
    for (const QList<QWidget*>& row : rows) {
        auto* line = new QHBoxLayout;
        bool isFilled = false;
        for (QWidget* widget : row) {
            const bool takesRoom =
                qobject_cast<QSlider*>(widget) || widget->metaObject() == &QLineEdit::staticMetaObject;
            isFilled = isFilled || takesRoom;
            line->addWidget(widget, takesRoom ? 1 : 0);
        }
        if (!isFilled) line->addStretch();
        layout->addLayout(line);
    }
    return group;
}

/// Room for the widest number that it will hold.
static QLabel* makeNumberLabel(const char* name, const QString& tip, int largest)
{
    auto* label = makeControl<QLabel>(name, tip);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QString::number(largest)) + 4);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QGroupBox* ImageDialog::makeSaveGroup()
{
    _storeBox = makeControl<QCheckBox>("storeBox", "Set 'Save Image' to memory ON", "Save Images");
    _resaveButton = makeButton("resaveButton", "Resave", "resave");
    _saveButton = makeButton("saveButton", "Save Extra", tr("Saves the image on the screen once more"));
    _clearButton = makeButton("clearButton", "Clear All", "Clear");
    _collectEdit =
        makeControl<NumberEdit>("collectEdit", tr("Images to save from now on, one an ensemble; 0 for none"), 0.0, 1e6);
    _collectEdit->setWhole(true);
    _collectEdit->setNumber(_imgstore->collectTotal());
    return makeGroup(
        "groupBox1", "Save",
        {{_storeBox, _resaveButton, _saveButton, _clearButton}, {new QLabel("Number to collect: "), _collectEdit}});
}

QGroupBox* ImageDialog::makeViewGroup()
{
    _viewBox = makeControl<QCheckBox>("viewBox", "Set 'Show Image' to screen ON", "Show Images");
    _imgSlider = makeSlider("imgSlider", tr("The image to show"), 1, 1, 1);
    _imgLabel = makeNumberLabel("imgLabel", tr("Number of the image"), 99999);
    return makeGroup("groupBox2", "View", {{_viewBox}, {new QLabel("Images:"), _imgSlider, _imgLabel}});
}

QGroupBox* ImageDialog::makeMovieGroup()
{
    _spdSlider = makeSlider("spdSlider", tr("Time between two images"), 10, 2000, 10);
    _spdSlider->setValue(_ispeed);
    _spdLabel = makeNumberLabel("spdLabel", tr("Time between two images"), 99999);
    _spdLabel->setNum(_ispeed);
    _playButton = makeButton("playButton", "Play", "loop");
    _stopButton = makeButton("stopButton", "Stop", "stop");
    return makeGroup("groupBox3", "Movie",
                     {{new QLabel("Delay:"), _spdSlider, _spdLabel, new QLabel("msec")}, {_playButton, _stopButton}});
}

QGroupBox* ImageDialog::makeSelectGroup()
{
    _selectBox = makeControl<QCheckBox>("selectBox", "Set 'Select Image' to view ON", "Select Images");
    _selectField = makeControl<QLineEdit>("selectField", "comma delimited image numbers");
    _selectField->setPlaceholderText("1,3,5,7");
    return makeGroup("groupBox4", "Select", {{_selectBox, new QLabel("Image #: "), _selectField}});
}

QGroupBox* ImageDialog::makeFileGroup()
{
    _fileBox = makeControl<QCheckBox>("fileBox", "Set 'Save File' of image ON", "Save File");
    _fileButton = makeButton("fileButton", "File", "file");
    _fileField = makeControl<QLineEdit>("fileField", tr("File of the images; each gets its number behind the name"));
    return makeGroup("groupBox5", "File", {{_fileBox, _fileButton, _fileField}});
}

void ImageDialog::connectControls()
{
    _storeBox->setChecked(_imgstore->isStored());
    connect(_storeBox, &QCheckBox::stateChanged, this, &ImageDialog::changeStore);
    connect(_resaveButton, &QPushButton::clicked, this, &ImageDialog::resaveImage);
    connect(_saveButton, &QPushButton::clicked, this, &ImageDialog::saveExtraImage);
    connect(_clearButton, &QPushButton::clicked, this, &ImageDialog::clearImage);
    connect(_collectEdit, &NumberEdit::numberEdited, this, &ImageDialog::setCollect);
    connect(_viewBox, &QCheckBox::stateChanged, this, &ImageDialog::changeView);
    connect(_imgSlider, &QSlider::valueChanged, this, &ImageDialog::changeSliderImage);
    connect(_spdSlider, &QSlider::valueChanged, this, &ImageDialog::changeSliderSpeed);
    connect(_playButton, &QPushButton::clicked, this, &ImageDialog::startLoop);
    connect(_stopButton, &QPushButton::clicked, this, &ImageDialog::endLoop);
    connect(_selectBox, &QCheckBox::stateChanged, this, &ImageDialog::changeSelect);
    connect(_selectField, &QLineEdit::editingFinished, this, qOverload<>(&ImageDialog::changeImage));
    connect(_fileBox, &QCheckBox::stateChanged, this, &ImageDialog::changeFileStore);
    connect(_fileButton, &QPushButton::clicked, this, &ImageDialog::fileImage);
    connect(_fileField, &QLineEdit::editingFinished, this, [this] { takeFile(_fileField->text()); });
    connect(_timer, &QTimer::timeout, this, &ImageDialog::imageLoop);
    connect(_imgstore, &ImageStorage::totalChanged, this, &ImageDialog::checkCount);
    connect(_imgstore, &ImageStorage::storedChanged, _storeBox, &QCheckBox::setChecked);
    connect(_imgstore, &ImageStorage::storedChanged, this, &ImageDialog::enableButtons);
    // The slider follows the movie and the mouse; it isn't to show the picture once more.
    connect(this, qOverload<int>(&ImageDialog::changeImage), _imgSlider, [this](int number) {
        const QSignalBlocker quiet(_imgSlider);
        _imgSlider->setValue(number);
        _isvalue = number;
        _imgLabel->setNum(number);
    });
}

/// Without those whose column is hidden: no picture is to be spent on them.
QList<SeismicDisplay*> ImageDialog::displays() const
{
    QList<SeismicDisplay*> shown;
    for (SeismicDisplay* display : *_displaylist)
        if (!display->isHidden() && !(display->parentWidget() && display->parentWidget()->isHidden()))
            shown.append(display);
    return shown;
}

void ImageDialog::checkCount()
{
    // A collection counts anew, and the slider with it; the mouse and the movie reach all that is held.
    const int count = std::max(1, std::min(_imgstore->count(), _imgstore->storeTotal()));
    const bool hasChanged = count != _icount;
    _icount = count;
    enableButtons();
    _imgLabel->setNum(int(_isvalue));
    if (!_imgstore->isCollecting() && !_collectEdit->hasFocus()) _collectEdit->setNumber(0);
    if (!hasChanged) return;
    const QSignalBlocker quiet(_imgSlider);
    _imgSlider->setRange(1, _icount);
    if (!_doView) _imgSlider->setValue(1);
    _isvalue = _imgSlider->value();
    _imgLabel->setNum(int(_isvalue));
}

/// Those that would do nothing are off.
void ImageDialog::enableButtons()
{
    for (QWidget* control : QList<QWidget*>{_clearButton, _playButton, _stopButton, _imgSlider})
        control->setEnabled(_imgstore->storeTotal() > 0);
    for (QWidget* control : {_resaveButton, _saveButton})
        control->setEnabled(_imgstore->isStored() || _imgstore->isCollecting());
}

void ImageDialog::changeStore(int state)
{
    _imgstore->setStored(state != 0);
}

void ImageDialog::resaveImage()
{
    for (SeismicDisplay* display : displays()) {
        display->setImageStored(false);
        display->storeImage(false);
        display->images().showAgain();  // the picture on the screen may be the one that was replaced
    }
}

void ImageDialog::saveExtraImage()
{
    for (SeismicDisplay* display : displays()) display->storeImage(true);
}

void ImageDialog::clearImage()
{
    setDoView(false);
    _imgstore->removeAll();
    for (SeismicDisplay* display : *_displaylist) display->images().forgetStored();
    _iloop = 0;
}

void ImageDialog::setCollect()
{
    const int n = int(_collectEdit->number());
    _imgstore->setCollectTotal(n);
    _imgstore->setCollect(n > 0);
    _imgstore->setCount(0);
    enableButtons();
}

void ImageDialog::changeView(int state)
{
    emit viewChanged(state != 0);
    // Without a window nobody has answered; without pictures there is nothing to see.
    if (state != 0 && _imgstore->storeTotal() == 0)
        changeViewFlag(false);
    else
        changeViewFlag(state != 0);
}

void ImageDialog::changeViewFlag(bool on)
{
    {
        const QSignalBlocker quiet(_viewBox);
        _viewBox->setChecked(on);
    }
    if (_doView == on) return;
    _doView = on;
    showStored(on);
}

void ImageDialog::setDoView(bool on)
{
    const bool hasChanged = _doView != on;
    changeViewFlag(on);
    if (hasChanged) emit viewChanged(on);
}

void ImageDialog::showStored(bool on)
{
    if (!on) endLoop();
    for (SeismicDisplay* display : on ? displays() : _displaylist->all()) {
        display->setShowImage(on);
        if (on) followDisplay(display);
    }
    if (on) showNumber(_imgSlider->value());
}

/// The slider shows where the mouse has come to.
void ImageDialog::followDisplay(SeismicDisplay* display)
{
    connect(display, &SeismicDisplay::imageShown, this, qOverload<int>(&ImageDialog::changeImage),
            Qt::UniqueConnection);
}

/// Pictures i, i + 1, ... on the displays from left to right; the slider stands at the last of them.
void ImageDialog::showFrom(int i)
{
    for (SeismicDisplay* display : displays()) display->showImage(i++);
}

/// The same for a number of the slider, which stays there: it is that of the first display.
void ImageDialog::showNumber(int number)
{
    showFrom(number - 1);
    emit changeImage(number);
}

void ImageDialog::changeSliderImage(double value)
{
    _isvalue = value;
    _imgLabel->setNum(int(value));
    if (!_viewBox->isChecked()) return;
    for (SeismicDisplay* display : displays()) display->setShowImage(true);
    if (value < 1 || value > _icount) return;
    showNumber(int(value));
}

void ImageDialog::changeSliderSpeed(double value)
{
    _ispeed = int(value);
    _spdLabel->setNum(_ispeed);
    if (_timer->isActive()) _timer->setInterval(_ispeed);
}

bool ImageDialog::isPlaying() const
{
    return _timer->isActive();
}

void ImageDialog::startLoop()
{
    if (_timer->isActive()) return;
    if (!_doView) _viewBox->setChecked(true);
    if (!_doView) return;  // no pictures
    checkCount();
    _inLoop = false;
    _timer->start(_ispeed);
}

void ImageDialog::endLoop()
{
    _timer->stop();
}

void ImageDialog::imageLoop()
{
    if (_inLoop) return;
    _inLoop = true;
    if (_iloop >= _imgstore->storeTotal()) _iloop = 0;
    showFrom(_iloop);
    _iloop += std::max(1, displays().size());
    if (_iloop >= _imgstore->storeTotal()) _iloop = 0;
    _inLoop = false;
}

void ImageDialog::changeSelect(int state)
{
    for (SeismicDisplay* display : *_displaylist) display->setShowImageList(state != 0, _imageArray);
}

void ImageDialog::changeImage()
{
    _imageArray.clear();
    for (const QString& piece : _selectField->text().split(',')) {
        if (piece.trimmed().isEmpty()) break;
        _imageArray.append(piece.trimmed().toInt());
    }
    if (_selectBox->isChecked()) changeSelect(1);
}

void ImageDialog::changeFileStore(int state)
{
    const WaitCursor wait;
    _imgstore->setSaved(state != 0);
    if (state != 0) writeHeld();
}

/// What is held already: each picture under its own number, the one on the screen as the window shows it.
void ImageDialog::writeHeld()
{
    const QList<SeismicDisplay*> shown = displays();
    const bool isLastOnScreen = !shown.isEmpty() && shown.first()->images().isImageStored();
    _imgstore->performSaveFile2(isLastOnScreen ? 1 : 0);
    if (isLastOnScreen) shown.first()->saveToFile(_imgstore->savedFile(), true);
}

void ImageDialog::fileImage()
{
    const QString name = QFileDialog::getSaveFileName(this, "Image Export File Name", QDir::homePath() + "/images.png",
                                                      "Images (*.jpg,*.png,*.tif,*.gif,*.bmp);;All files (*)");
    if (name.isEmpty()) return;
    _fileField->setText(name);
    _oldFile.clear();  // chosen again, the files are written again
    takeFile(name);
}

void ImageDialog::takeFile(const QString& name)
{
    if (name == _oldFile) return;
    QString error;
    if (!canWritePicture(numberedName(name, 1), &error)) {
        _fileField->setText(_imgstore->savedFile());
        QMessageBox::critical(this, tr("Image Format Error"), error);
        return;
    }
    _oldFile = name;
    const WaitCursor wait;
    _imgstore->setSavedFile(name);
    _imgstore->setSavedClear();
    if (_imgstore->isSaved()) writeHeld();
}

/// Escape belongs to the menu that this is a tab of: alone this page would vanish from it.
void ImageDialog::keyPressEvent(QKeyEvent* event)
{
    if (isWindow())
        QDialog::keyPressEvent(event);
    else
        event->ignore();
}
