#include "support/text/AngleText.h"

#include "support/text/NumberFormat.h"
#include "support/text/NumberText.h"

void DegreesToDms(double value, double& degrees, double& minutes, double& seconds)
{
    // "ddd.ffffffff": the whole degrees before the point and its eight
    // decimals; the decimals are read as a positive fraction whatever the sign.
    const CString text = FormatFixed(value, 8);
    degrees = ParseInt(text.Left(text.GetLength() - 9));
    const double fraction = ParseDouble(CString("0.") + text.Right(8));

    minutes = ParseInt(FormatFixed(fraction * 60.0, 4));

    double sec = (value - degrees - minutes / 60.0) * 3600.0;
    if (sec < 1e-10)
        sec = 0.0;
    seconds = ParseDouble(FormatDouble(sec, 8, false));
}

double DmsToMinutes(double value)
{
    double degrees, minutes, seconds;
    DegreesToDms(value, degrees, minutes, seconds);
    return degrees * 60.0 + minutes + seconds / 60.0;
}

double DmsToSeconds(double value)
{
    double degrees, minutes, seconds;
    DegreesToDms(value, degrees, minutes, seconds);
    return degrees * 3600.0 + minutes * 60.0 + seconds;
}

void DmsArrayToMinutes(const double* dms, double& minutes)
{
    minutes = dms ? dms[0] * 60.0 + dms[1] + dms[2] / 60.0 : 0.0;
}
