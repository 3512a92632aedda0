#include "map/pivot_layout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "map/small_random.h"

namespace pelk {
namespace {

constexpr std::size_t kPivots = 50;
constexpr int kPowerIterations = 60;
/// How far people move at random, to tell those with the same links apart.
constexpr double kJitter = 0.1;

using Column = std::vector<double>;

double product(const Column& a, const Column& b) {
    return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

/// Returns the distances from each pivot. Each next pivot is the person farthest from those before.
std::vector<Column> pivotDistances(const Rows& rows, const LinkLengths& lengths) {
    std::vector<Column> columns;
    Column nearest(rows.size(), kUnreachable);
    std::uint32_t pivot = 0;
    while (columns.size() < std::min(kPivots, rows.size())) {
        columns.push_back(distancesFrom(pivot, rows, lengths));
        for (std::size_t person = 0; person < rows.size(); ++person)
            nearest[person] = std::min(nearest[person], columns.back()[person]);
        pivot = static_cast<std::uint32_t>(std::max_element(nearest.begin(), nearest.end()) -
                                           nearest.begin());
    }
    return columns;
}

void subtractMean(Column& column) {
    const double mean =
        std::accumulate(column.begin(), column.end(), 0.0) / static_cast<double>(column.size());
    for (double& value : column)
        value -= mean;
}

/// Squares the distances and moves the means of all rows and columns to 0.
void center(std::vector<Column>& columns) {
    for (Column& column : columns) {
        for (double& value : column)
            value *= -value / 2;
        subtractMean(column);
    }
    for (std::size_t row = 0; row < columns.front().size(); ++row) {
        double sum = 0;
        for (const Column& column : columns)
            sum += column[row];
        for (Column& column : columns)
            column[row] -= sum / static_cast<double>(columns.size());
    }
}

std::vector<Column> productsOf(const std::vector<Column>& columns) {
    std::vector<Column> products(columns.size(), Column(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i)
        for (std::size_t k = 0; k <= i; ++k)
            products[i][k] = products[k][i] = product(columns[i], columns[k]);
    return products;
}

void normalize(Column& vector) {
    const double length = std::sqrt(product(vector, vector));
    for (double& value : vector)
        value = length > 0 ? value / length : 0;
}

/// Returns the eigenvector of the largest eigenvalue, by power iteration.
Column mainEigenvector(const std::vector<Column>& matrix, SmallRandom& random) {
    Column vector(matrix.size());
    for (double& value : vector)
        value = random.fraction() + 0.5;
    for (int round = 0; round < kPowerIterations; ++round) {
        normalize(vector);
        Column next;
        for (const Column& row : matrix)
            next.push_back(product(row, vector));
        vector = std::move(next);
    }
    normalize(vector);
    return vector;
}

/// Removes the eigenvector, so that the next largest becomes the main one.
void deflate(std::vector<Column>& matrix, const Column& vector) {
    double value = 0;
    for (std::size_t row = 0; row < matrix.size(); ++row)
        value += product(matrix[row], vector) * vector[row];
    for (std::size_t row = 0; row < matrix.size(); ++row)
        for (std::size_t at = 0; at < vector.size(); ++at)
            matrix[row][at] -= value * vector[row] * vector[at];
}

Column projected(const std::vector<Column>& columns, const Column& vector) {
    Column coordinates(columns.front().size());
    for (std::size_t pivot = 0; pivot < columns.size(); ++pivot)
        for (std::size_t row = 0; row < coordinates.size(); ++row)
            coordinates[row] += columns[pivot][row] * vector[pivot];
    return coordinates;
}

/// Returns the factor that makes the mean length of the links right.
double scaleOf(const Points& points, const Rows& rows, const LinkLengths& lengths) {
    double drawn = 0;
    double wanted = 0;
    for (std::size_t person = 0; person < rows.size(); ++person)
        for (const Neighbour& neighbour : rows.of(person)) {
            drawn += lengthOf(points[person] - points[neighbour.person]);
            wanted += lengths[neighbour.link];
        }
    return drawn > 0 ? wanted / drawn : 1;
}

}  // namespace

Points pivotLayout(const Rows& rows, const LinkLengths& lengths) {
    std::vector<Column> columns = pivotDistances(rows, lengths);
    center(columns);
    std::vector<Column> products = productsOf(columns);
    SmallRandom random;
    const Column horizontal = mainEigenvector(products, random);
    deflate(products, horizontal);
    const Column x = projected(columns, horizontal);
    const Column y = projected(columns, mainEigenvector(products, random));
    Points points;
    for (std::size_t person = 0; person < rows.size(); ++person)
        points.push_back({x[person], y[person]});
    const double scale = scaleOf(points, rows, lengths);
    for (Point& point : points)
        point =
            point * scale + Point{random.fraction() - 0.5, random.fraction() - 0.5} * (2 * kJitter);
    return points;
}

}  // namespace pelk
