// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Prints a hash of what every kernel makes of the same input. However this is compiled, the lines
// must be the same: so must then be every bit of every result.

#include "numerics/correlation.h"
#include "numerics/initialfactors.h"
#include "numerics/jacobi.h"
#include "numerics/owners.h"
#include "numerics/product.h"
#include "numerics/rotation.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>

using namespace pelmora;

namespace {

class Hash
{
public:
    void add(double value)
    {
        std::uint64_t bits = 1; // for NaN, whichever it is
        if (!std::isnan(value))
            std::memcpy(&bits, &value, sizeof bits);
        m_value = (m_value ^ bits) * 0x100000001B3ULL;
        m_value ^= m_value >> 29;
    }

    void add(const Matrix& matrix)
    {
        for (int i = 0; i < matrix.rows(); ++i)
            for (int j = 0; j < matrix.columns(); ++j)
                add(matrix[i][j]);
    }

    void print(const char* kernel) const
    {
        std::printf("%s %016llx\n", kernel, static_cast<unsigned long long>(m_value));
    }

private:
    std::uint64_t m_value = 0xCBF29CE484222325ULL;
};

Matrix randomMatrix(int rows, int columns, std::mt19937_64& generator)
{
    Matrix result(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            result[i][j] = static_cast<double>(generator() >> 11) * 0x1p-52 - 1.0;
    return result;
}

struct Hashes
{
    Hash correlate;
    Hash jacobi;
    Hash rotate;
    Hash multiply;
};

void rotateBothWays(const Matrix& v, const Vector& d, int m, Hashes& hashes)
{
    const int p = v.rows();
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        Matrix l(p, m + 1);
        Matrix b(p, m);
        initial_loadings(d.data(), v.rowPointers(), p, m + 1, l.rowPointers());
        score_coefficients(d.data(), v.rowPointers(), p, m, b.rowPointers());
        pelmora::rotate(l.rowPointers(), b.rowPointers(), m, p, method);
        hashes.rotate.add(l);
        hashes.rotate.add(b);
    }
}

void analyse(int cases, int variables, int factors, int flag, Hashes& hashes)
{
    std::mt19937_64 generator{std::uint64_t(cases * 1000 + variables)};
    Matrix x = flag == 1 ? randomMatrix(variables, cases, generator)
                         : randomMatrix(cases, variables, generator);
    Matrix r = Matrix::adopt(correlate(x.rowPointers(), x.rows(), x.columns(), flag), variables,
                             variables);
    hashes.correlate.add(r);
    hashes.correlate.add(x);

    Vector d(variables);
    Matrix v(variables, variables);
    hashes.jacobi.add(jacobi(r.rowPointers(), variables, d.data(), v.rowPointers()));
    for (double value : d)
        hashes.jacobi.add(value);
    hashes.jacobi.add(v);

    sort_eigenpairs(d.data(), v.rowPointers(), variables);
    rotateBothWays(v, d, factors, hashes);

    Matrix scores(cases, variables);
    multiply(scores.rowPointers(), x.rowPointers(), flag, v.rowPointers(), x.rows(), x.columns(),
             variables);
    hashes.multiply.add(scores);
}

} // namespace

int main()
{
    Hashes hashes;
    for (int variables = 3; variables <= 30; variables += 3)
        for (int flag : {0, 1})
            analyse(140 - variables, variables, 2 + variables / 5, flag, hashes);
    analyse(200, 103, 9, 0, hashes);
    hashes.correlate.print("correlate");
    hashes.jacobi.print("jacobi");
    hashes.rotate.print("rotate");
    hashes.multiply.print("multiply");
}
