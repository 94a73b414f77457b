// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Prints a hash of what every kernel makes of the same input. However this is compiled, the lines
// must be the same: so must then be every bit of every result.

#include "numerics/moments.h"
#include "numerics/product.h"
#include "numericstest.h"

#include <bit>
#include <cstdint>
#include <cstdio>

using namespace pelmora;
using namespace numericstest;

namespace {

struct Hash
{
    void add(std::span<const double> values)
    {
        for (double x : values) {
            m_value ^= std::isnan(x) ? 1 : std::bit_cast<std::uint64_t>(x); // whichever NaN it is
            m_value *= 0x100000001B3ULL;
            m_value ^= m_value >> 29;
        }
    }

    void print(const char* kernel) const
    {
        std::printf("%s %016llx\n", kernel, static_cast<unsigned long long>(m_value));
    }

private:
    std::uint64_t m_value = 0xCBF29CE484222325ULL;
};

struct Hashes
{
    Hash correlate;
    Hash jacobi;
    Hash rotate;
    Hash multiply;
    Hash moments;
};

void analyse(int cases, int variables, int factors, int flag, Hashes& hashes)
{
    Random random{unsigned(cases * 1000 + variables)};
    Matrix x =
        flag == 1 ? randomMatrix(variables, cases, random) : randomMatrix(cases, variables, random);
    Matrix r = correlationsOf(x, flag);
    hashes.correlate.add(elements(r));
    hashes.correlate.add(elements(x));

    const Eigenpairs pairs(std::move(r));
    hashes.jacobi.add(pairs.d);
    hashes.jacobi.add(elements(pairs.v));

    for (int method : {PelmoraRotation, VarimaxRotation}) {
        const Rotation rotation = rotated(pairs.initialLoadings(), factors, method);
        hashes.rotate.add(elements(rotation.l));
        hashes.rotate.add(elements(rotation.b));
    }

    MomentsGatherer gatherer(x.columns());
    gatherer.addBlock(x[0], x.rows());
    gatherer.addBlock(x[0], 3);
    const Moments moments = gatherer.takeMoments();
    hashes.moments.add(moments.rest);
    hashes.moments.add(moments.products);

    Matrix scores(cases, variables);
    multiply(scores.rowPointers(), x.rowPointers(), flag, pairs.v.rowPointers(), x.rows(),
             x.columns(), variables);
    hashes.multiply.add(elements(scores));
}

} // namespace

int main()
{
    Hashes hashes;
    for (int variables = 3; variables <= 30; variables += 3)
        for (int flag : {0, 1})
            analyse(140 - variables, variables, 2 + variables / 5, flag, hashes);
    analyse(300, 250, 9, 0, hashes);
    hashes.correlate.print("correlate");
    hashes.jacobi.print("jacobi");
    hashes.rotate.print("rotate");
    hashes.multiply.print("multiply");
    hashes.moments.print("moments");
}
