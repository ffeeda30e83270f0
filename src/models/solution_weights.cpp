#include "models/solution_weights.h"

#include "platform/numbers.h"
#include "platform/optional_format.h"

namespace talvora::solution {

namespace {

constexpr int fractionDecimals = 4;

double scoreIn(const FlexGrid& grid, int row, int col) {
    return numberIn(grid.TextMatrix(row, col)).value_or(0);
}

double share(double score, double sum) {
    return sum == 0 ? 0 : score / sum;
}

// The rounded percentage is what counts: three equal dimensions weigh .3333 each.
double fractionOf(const QString& percentage) {
    constexpr double hundred = 100;
    return leadingNumber(formatOptional(leadingNumber(percentage) / hundred, fractionDecimals));
}

// The elements on the rows whose text in the column begins with the code.
void weighElements(FlexGrid& grid, const QString& code, int col) {
    const double sum = SumElementScores(grid, code);
    for (int row = FirstRow; row < grid.Rows(); ++row) {
        // A dimension that has no element yet has no element weight.
        if (grid.TextMatrix(row, col).startsWith(code) && !grid.TextMatrix(row, ElementCol).isEmpty()) {
            const double weight =
                fractionOf(grid.TextMatrix(row, DimensionWeightCol)) * share(scoreIn(grid, row, ElementScoreCol), sum);
            grid.setTextMatrix(row, ElementWeightCol, percentText(weight));
        }
    }
}

}  // namespace

double SumDimensionScores(const FlexGrid& grid) {
    double sum = 0;
    for (int row = FirstRow; row < grid.Rows(); ++row) {
        sum += isFirstRow(grid, row) ? scoreIn(grid, row, DimensionScoreCol) : 0;
    }
    return sum;
}

double SumElementScores(const FlexGrid& grid, const QString& code) {
    double sum = 0;
    for (int row = FirstRow; row < grid.Rows(); ++row) {
        sum += grid.TextMatrix(row, DimensionCol).startsWith(code) ? scoreIn(grid, row, ElementScoreCol) : 0;
    }
    return sum;
}

void weighDimensions(FlexGrid& grid) {
    const double sum = SumDimensionScores(grid);
    for (int row = FirstRow; row < grid.Rows(); ++row) {
        const double weight = share(scoreIn(grid, row, DimensionScoreCol), sum);
        grid.setTextMatrix(row, DimensionWeightCol, percentText(weight));
    }
}

void weighElementsOnRowsOf(FlexGrid& grid, const QString& code) {
    weighElements(grid, code, DimensionCol);
}

void weighElementsCodedUnder(FlexGrid& grid, const QString& code) {
    weighElements(grid, code, ElementCol);
}

}  // namespace talvora::solution
