// The plots of a reference interval run.
#pragma once

#include "analyses/reference/reference_sample.h"
#include "core/analysis.h"

namespace quorval::reference {

inline constexpr PlotWindow kValuePictures[] = {
    {.window = "frmRefHisto", .caption = {}, .bitmap = " Chart2D1.bmp", .height = 250},
    {.window = "frmRefCum", .caption = {}, .bitmap = " Chart2D1Cum.bmp", .height = 250},
};
inline constexpr PlotWindow kTransformedPictures[] = {
    {.window = "frmRefHistoTrans", .caption = {}, .bitmap = " Chart2D1Trans.bmp", .height = 250},
    {.window = "frmRefCumTrans", .caption = {}, .bitmap = " Chart2D1CumTrans.bmp", .height = 250},
};
inline constexpr PlotJob kPlotJobs[] = {{.pictures = kValuePictures},
                                        {.pictures = kTransformedPictures}};

// frmRefHisto, with the Gaussian curve where it is asked for.
void DrawHistogram(Run& run, const ReferenceSample& sample, bool with_gaussian);

// frmRefCum: the sorted values and the Gaussian curve; empty where the curve is not asked for.
void DrawCumulative(Run& run, const ReferenceSample& sample, bool with_gaussian);

// frmRefHistoTrans and frmRefCumTrans, both always with their curve.
void DrawTransformed(Run& run, std::span<const Real> TransformedValues);

}  // namespace quorval::reference
