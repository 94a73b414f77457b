// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/conversionjob.h"

#include "convert/refusal.h"
#include "convert/source.h"

#include <new>

namespace convert {

JobResult runJob(const QString& path, Options options)
{
    JobResult result;
    try {
        const auto text = std::make_shared<const SourceText>(readSource(path, options));
        // The text lives as long as what points into it.
        result.conversion = std::shared_ptr<const Conversion>(
            new Conversion(*text, options),
            [text](const Conversion* conversion) { delete conversion; });
        result.isAccepted = result.conversion->isAccepted();
        result.lines =
            result.isAccepted ? reportOf(*result.conversion) : result.conversion->reasons();
    } catch (const ReadFailure& failure) {
        result.lines = QStringList(failure.reason());
    } catch (const Refusal& refusal) {
        result.lines = refusal.reasons();
    } catch (const std::bad_alloc&) {
        result = {};
        result.lines = QStringList(tr("The memory does not suffice for this file."));
    }
    return result;
}

} // namespace convert
