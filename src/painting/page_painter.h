// The printed page of a sheet.
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QPageLayout>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>

#include "platform/platform.h"

class QPagedPaintDevice;

namespace quorval {

// A4, upright or lying as the first of the jobs asks for.
QPageLayout PaperOf(std::span<const PrintJob> jobs);

// Asked before each page of a job; false stops the printing.
using GoOn = std::function<bool(const PrintJob& job, int page, int pages)>;

// Paints the jobs one after the other; each starts a page and counts its pages from 1.  Numbers
// have the locale's decimal sign.  A printer's own choice of pages is kept to.  False when the
// device cannot be painted on.
bool PaintJobs(std::span<const PrintJob> jobs, const QLocale& locale, QPagedPaintDevice& device,
               const GoOn& go_on = {});

// The same as a PDF file, on PaperOf() where no other is named; empty when it cannot be painted.
QByteArray PdfBytes(std::span<const PrintJob> jobs, const QLocale& locale,
                    const std::optional<QPageLayout>& paper = {});

// Writes that file; false when it cannot be written.
bool PrintToPdf(std::span<const PrintJob> jobs, const QLocale& locale,
                const std::filesystem::path& path, const std::optional<QPageLayout>& paper = {});

}  // namespace quorval
