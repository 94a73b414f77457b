// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/filewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <new>
#include <ostream>
#include <streambuf>

namespace {

/// Passes a stream's bytes to a device in large pieces. A device that is not open yet is opened for
/// the first piece only, so that a file written directly is not emptied when the writer fails
/// before.
class DeviceBuffer : public std::streambuf
{
public:
    DeviceBuffer(QFileDevice& device, QIODevice::OpenMode mode) : m_device(device), m_mode(mode)
    {
        setp(m_bytes.data(), m_bytes.data() + m_bytes.size());
    }

protected:
    int_type overflow(int_type byte) override
    {
        if (sync() != 0)
            return traits_type::eof();
        if (!traits_type::eq_int_type(byte, traits_type::eof()))
            sputc(traits_type::to_char_type(byte));
        return traits_type::not_eof(byte);
    }

    int sync() override
    {
        if (!m_device.isOpen() && !m_device.open(m_mode))
            return -1;
        // A full device takes fewer bytes than it is given and gives its reason only when it is
        // given the rest.
        for (const char* next = pbase(); next < pptr();) {
            const qint64 taken = m_device.write(next, pptr() - next);
            if (taken <= 0)
                return -1;
            next += taken;
        }
        setp(m_bytes.data(), m_bytes.data() + m_bytes.size());
        return 0;
    }

private:
    QFileDevice& m_device;
    QIODevice::OpenMode m_mode;
    std::array<char, 1 << 16> m_bytes;
};

/// Whether another file may take the place of @p path. Not below /proc, where links lead to what a
/// process has open, such as its standard output: it would keep the old file.
bool isReplaceable(const QString& path)
{
    constexpr int longestChain = 40;
    QFileInfo file(path);
    for (int i = 0; i < longestChain; ++i) {
        if (file.absoluteDir().canonicalPath().startsWith(QLatin1String("/proc/")))
            return false;
        if (!file.isSymLink())
            break;
        file.setFile(file.symLinkTarget());
    }
    // The name of the temporary file is longer by seven characters.
    constexpr int longestName = 255 - 7;
    return (!file.exists() || file.isFile()) &&
           QFile::encodeName(file.fileName()).size() <= longestName;
}

/// Opens an existing file without changing it: not everybody who may replace a file may write to
/// it, and this way the reason comes from the system.
bool isWritable(const QString& path, QString& reason)
{
    QFile file(path);
    const bool opened = file.open(QIODevice::Append | QIODevice::ExistingOnly);
    reason = file.errorString();
    return opened;
}

/// Whether @p path can be written, as far as can be seen before there is anything to write: making
/// that may take long. Leaves @p device open where opening it empties nothing.
bool canBegin(QFileDevice& device, QIODevice::OpenMode mode, bool replaces, const QString& path,
              QString& reason)
{
    const QFileInfo file(path);
    if (file.isFile())
        return isWritable(path, reason);
    if (!replaces && !file.exists())
        return true; // and no empty file stays when there is nothing to write
    const bool opened = device.open(mode);
    reason = device.errorString();
    return opened;
}

std::optional<WriteFailure> fill(QFileDevice& device, QIODevice::OpenMode mode, const QString& path,
                                 const std::function<void(std::ostream&)>& write)
{
    using Step = WriteFailure::Step;
    DeviceBuffer buffer(device, mode);
    std::ostream stream(&buffer);
    try {
        stream.exceptions(std::ios_base::failbit | std::ios_base::badbit);
        write(stream);
        stream.flush();
    } catch (const std::ios_base::failure&) {
        return WriteFailure{device.isOpen() ? Step::Writing : Step::Opening, path,
                            device.errorString()};
    } catch (const std::bad_alloc&) {
        return WriteFailure{Step::Content, path,
                            QCoreApplication::translate("FileWriter", "Not enough memory.")};
    } catch (const std::exception& failure) {
        return WriteFailure{Step::Content, path, QString::fromLocal8Bit(failure.what())};
    }
    return std::nullopt;
}

} // namespace

QString WriteFailure::text() const
{
    return QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), reason);
}

std::optional<WriteFailure>
writeFile(const QString& path, const std::function<void(std::ostream&)>& write, LineEnds lineEnds)
{
    using Step = WriteFailure::Step;
    QFile straight(path);
    QSaveFile second(path);
    second.setDirectWriteFallback(true);
    const bool replaces = isReplaceable(path);
    QFileDevice& device = replaces ? static_cast<QFileDevice&>(second) : straight;
    QIODevice::OpenMode mode = QIODevice::WriteOnly | QIODevice::Unbuffered;
    mode.setFlag(QIODevice::Text, lineEnds == LineEnds::OfThePlatform);
    if (QString reason; !canBegin(device, mode, replaces, path, reason))
        return WriteFailure{Step::Opening, path, reason};
    if (auto failure = fill(device, mode, path, write)) {
        second.cancelWriting();
        return failure;
    }
    // A full disk is often reported only now.
    if (replaces)
        second.commit();
    else
        straight.close();
    if (device.error() != QFileDevice::NoError)
        return WriteFailure{Step::Writing, path, device.errorString()};
    return std::nullopt;
}
