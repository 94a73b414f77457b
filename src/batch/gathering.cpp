// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/gathering.h"

#include "batch/console.h"
#include "batch/filemessages.h"

#include <QCoreApplication>

#include <climits>
#include <memory>
#include <new>
#include <stdexcept>

namespace batch {

bool readStream(pelmora::RowStream& stream, const QString& file, std::size_t rowsPerBlock,
                const pelmora::RowStream::TakeRows& takeRows)
{
    const auto tellShortage = [&file] {
        tell(file, QCoreApplication::translate("Loading", "Not enough memory for loading matrix."));
        return false;
    };
    try {
        const FileMessages messages(file);
        const auto outcome = stream.read(rowsPerBlock, takeRows);
        if (outcome == pelmora::RowStream::CannotOpen)
            tell(file, tr("Cannot open file %1").arg(file));
        return outcome == pelmora::RowStream::Complete;
    } catch (const std::bad_alloc&) {
        return tellShortage();
    } catch (const std::length_error&) { // a triangle beyond all addresses
        return tellShortage();
    }
}

void tellEmptyTable(const QString& file)
{
    tell(file, QCoreApplication::translate("Loading", "Error in data matrix."));
}

bool gatherSums(pelmora::RowStream& stream, const QString& file, Sums& sums)
{
    using pelmora::MomentsGatherer;
    std::unique_ptr<MomentsGatherer> gatherer;
    const auto takeRows = [&](const double* values, std::size_t rows, std::size_t columns) {
        if (columns == 0)
            return;
        if (columns > INT_MAX)
            throw std::bad_alloc();
        if (!gatherer)
            gatherer = std::make_unique<MomentsGatherer>(static_cast<int>(columns));
        gatherer->addBlock(values, static_cast<int>(rows));
    };
    if (!readStream(stream, file, MomentsGatherer::casesPerBlock, takeRows))
        return false;
    if (gatherer)
        sums.moments = gatherer->takeMoments();
    sums.dataLines = stream.lineCount();
    sums.names = stream.names();
    return true;
}

} // namespace batch
