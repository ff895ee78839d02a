// The plots of a reference interval run.
#pragma once

#include "analyses/reference/reference_sample.h"
#include "core/analysis.h"

namespace quorval::reference {

inline constexpr PlotPicture kValuePictures[] = {
    {"frmRefHisto", " Chart2D1.bmp", 250},
    {"frmRefCum", " Chart2D1Cum.bmp", 250},
};
inline constexpr PlotPicture kTransformedPictures[] = {
    {"frmRefHistoTrans", " Chart2D1Trans.bmp", 250},
    {"frmRefCumTrans", " Chart2D1CumTrans.bmp", 250},
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
