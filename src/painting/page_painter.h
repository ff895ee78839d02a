// The printed page of a sheet.
#pragma once

#include <QLocale>
#include <filesystem>
#include <span>

#include "platform/platform.h"

class QPrinter;

namespace quorval {

// Paints the jobs one after the other; each starts a page and counts its pages from 1.  Numbers
// have the locale's decimal sign.
void PaintJobs(std::span<const PrintJob> jobs, const QLocale& locale, QPrinter& printer);

// The same into a PDF file; false when it cannot be written.
bool PrintToPdf(std::span<const PrintJob> jobs, const QLocale& locale,
                const std::filesystem::path& path);

}  // namespace quorval
