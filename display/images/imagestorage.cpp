#include "display/images/imagestorage.h"

#include "display/images/serverpicture.h"
#include "host/report.h"
#include "widgets/pictureexport.h"

#include <unistd.h>

#include <algorithm>

QSize StoredPicture::size() const
{
    return !pixmap.isNull() ? pixmap.size() : !bitmap.isNull() ? bitmap.size() : image.size();
}

QImage StoredPicture::toImage() const
{
    return !pixmap.isNull() ? pixmap.toImage() : !bitmap.isNull() ? bitmap.toImage() : image;
}

int64_t storedBytes(const QSize& size)
{
    const int64_t one = int64_t(size.width()) * size.height() * 4;
    return ServerPicture::isPossible(size) ? 2 * one : one;
}

/// For a store that no window has given a report of its own.
static Report& standardOutput()
{
    static PrintReport report;
    return report;
}

ImageStorage::ImageStorage(QObject* parent)
    : QObject(parent), _report(&standardOutput()), _limit(int64_t(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE) / 4)
{
}

ImageStorage::~ImageStorage() = default;

void ImageStorage::put(StoredPicture picture)
{
    picture.nBytes = storedBytes(picture.size());
    _nBytes += picture.nBytes;
    const bool hasPlace = picture.owner && picture.owner == _emptyOwner;
    _last = hasPlace ? std::min(_emptyPlace, _pictures.size()) : _pictures.size();
    _emptyOwner = nullptr;
    _pictures.insert(_pictures.begin() + long(_last), std::move(picture));
    if (!hasPlace || _emptyWasCounted) ++_icount;
    emit totalChanged();
}

static StoredPicture pictureWith(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const void* owner)
{
    StoredPicture picture;
    picture.axis.assign(1, 0.0f);
    picture.xMap = xMap;
    picture.yMap = yMap;
    picture.owner = owner;
    return picture;
}

void ImageStorage::putImage(const QImage& image, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const void* owner)
{
    StoredPicture picture = pictureWith(xMap, yMap, owner);
    picture.image = image;
    put(std::move(picture));
}

void ImageStorage::putPixmap(const QPixmap& pixmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const void* owner)
{
    StoredPicture picture = pictureWith(xMap, yMap, owner);
    picture.pixmap = pixmap;
    put(std::move(picture));
}

void ImageStorage::putBitmap(const QBitmap& bitmap, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const void* owner)
{
    StoredPicture picture = pictureWith(xMap, yMap, owner);
    picture.bitmap = bitmap;
    put(std::move(picture));
}

void ImageStorage::putAxis(const float* axis, int n, float pri, float pan, const QString& parm)
{
    if (_last >= _pictures.size()) return;
    StoredPicture& picture = _pictures[_last];
    picture.axis.assign(axis, axis + std::max(n, 0) + 1);
    picture.nTraces = std::max(n, 0);
    picture.pri = pri;
    picture.panel = pan;
    picture.parm = parm;
}

const StoredPicture* ImageStorage::picture(int i) const
{
    return i >= 0 && i < storeTotal() ? &_pictures[size_t(i)] : nullptr;
}

const QImage* ImageStorage::getImage(int i) const
{
    const StoredPicture* found = picture(i);
    return found && !found->image.isNull() ? &found->image : nullptr;
}

const QPixmap* ImageStorage::getPixmap(int i) const
{
    const StoredPicture* found = picture(i);
    return found && !found->pixmap.isNull() ? &found->pixmap : nullptr;
}

const QBitmap* ImageStorage::getBitmap(int i) const
{
    const StoredPicture* found = picture(i);
    return found && !found->bitmap.isNull() ? &found->bitmap : nullptr;
}

QwtScaleMap ImageStorage::getXMap(int i) const
{
    const StoredPicture* found = picture(i);
    return found ? found->xMap : QwtScaleMap();
}

QwtScaleMap ImageStorage::getYMap(int i) const
{
    const StoredPicture* found = picture(i);
    return found ? found->yMap : QwtScaleMap();
}

const float* ImageStorage::getAxis(int i, int* n, float* pri, float* pan, QString* parm) const
{
    const StoredPicture* found = picture(i);
    if (!found) return nullptr;
    *n = found->nTraces;
    *pri = found->pri;
    *pan = found->panel;
    *parm = found->parm;
    return found->axis.data();
}

void ImageStorage::forget(size_t i)
{
    _nBytes -= _pictures[i].nBytes;
    _pictures.erase(_pictures.begin() + long(i));
    _icount = std::max(0, _icount - 1);
}

/// The last picture, or with an owner the last of that owner; -1 if there is none.
int ImageStorage::lastOf(const void* owner) const
{
    for (int i = storeTotal() - 1; i >= 0; --i)
        if (!owner || _pictures[size_t(i)].owner == owner) return i;
    return -1;
}

void ImageStorage::removeLastImage(const void* owner)
{
    const int i = lastOf(owner);
    if (i < 0) return;
    _emptyOwner = owner;
    _emptyPlace = size_t(i);
    _emptyWasCounted = _icount > 0;
    forget(size_t(i));
    emit totalChanged();
}

bool ImageStorage::hasRoom(int64_t nBytes, const void* replaced) const
{
    const int i = replaced ? lastOf(replaced) : -1;
    return _nBytes - (i < 0 ? 0 : _pictures[size_t(i)].nBytes) + nBytes <= _limit;
}

void ImageStorage::removeAll()
{
    _pictures.clear();
    _emptyOwner = nullptr;
    _icount = 0;
    _nBytes = 0;
    emit totalChanged();
}

void ImageStorage::setStoreTotal(int n)
{
    while (storeTotal() > std::max(n, 0)) forget(_pictures.size() - 1);
    emit totalChanged();
}

void ImageStorage::setStored(bool on)
{
    if (_dostore == on) return;
    _dostore = on;
    emit storedChanged(on);
}

void ImageStorage::endCollection()
{
    setCount(0);
    emit collected();
}

void ImageStorage::stop()
{
    setCollect(false);
    setStored(false);
    emit full();
}

void ImageStorage::setSavedClear()
{
    for (StoredPicture& picture : _pictures) picture.isSaved = false;
}

void ImageStorage::setUnsaved(int i)
{
    if (picture(i)) _pictures[size_t(i)].isSaved = false;
}

int ImageStorage::performSaveFile(bool check)
{
    if (check && (!_doSave || _saveFile.isEmpty())) return -1;
    for (int i = 0; i < storeTotal(); ++i) {
        if (_pictures[size_t(i)].isSaved) continue;
        _pictures[size_t(i)].isSaved = true;
        return i;
    }
    return -1;
}

void ImageStorage::performSaveFile2(int except)
{
    if (!_doSave || _saveFile.isEmpty()) return;
    for (int i = 0; i < storeTotal() - except; ++i) {
        StoredPicture& picture = _pictures[size_t(i)];
        if (picture.isSaved) continue;
        picture.isSaved =
            savePictureFile(QPixmap::fromImage(picture.toImage()), numberedName(_saveFile, i + 1), _report);
    }
}

bool savePictureFile(const QPixmap& pixmap, const QString& name, Report* report)
{
    QString error;
    if (savePicture(pixmap, name, &error)) return true;
    report->line("Seismic Display: Error while writing pixmap file: " + name.toStdString() + "\n");
    return false;
}

QString numberedName(const QString& name, int number)
{
    const QString whole = name.isEmpty() ? QString("junk") : name;
    const int dot = whole.lastIndexOf('.');
    const bool hasDot = dot > whole.lastIndexOf('/') + 1;  // the one of a folder, or of a hidden file, cuts nothing
    const QString base = hasDot ? whole.left(dot) : whole, suffix = hasDot ? whole.mid(dot + 1) : QString();
    const QString digits = QString::number(number), blank = "-000";
    // The digits take the place of the last characters, but never of the name's own.
    return base + blank.chopped(std::min(digits.size(), blank.size())) + digits + '.' +
           (suffix.isEmpty() ? "png" : suffix);
}
