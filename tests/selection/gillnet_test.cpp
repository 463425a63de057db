#include "selection/gillnet.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "base/format.h"
#include "data/sample_readers.h"
#include "mortality/make_lfq.h"
#include "support/lfq_fixtures.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

// Two nets of one selection curve form: the catch of a net of mesh m at length L is
// N exp(-(L - k m)^2 / (2 s^2)), with k = 2.5 and s = 4; or the same on log lengths with
// ln L = 1.4 ln m.
std::vector<double> NetCatch(double mesh, double firstMid, double w, int nC, bool logNormal) {
    std::vector<double> c;
    for (int i = 0; i < nC; ++i) {
        const double L = firstMid + i * w;
        const double d = logNormal ? std::log(L) - 1.4 * std::log(mesh) : L - 2.5 * mesh;
        const double s = logNormal ? 0.12 : 4;
        c.push_back(1000 * std::exp(-d * d / (2 * s * s)));
    }
    return c;
}

LfqData TwoNets(bool logNormal = false) {
    return test::MakeLfq(11, 2,
                         {NetCatch(8, 11, 2, 20, logNormal), NetCatch(10, 11, 2, 20, logNormal)});
}

GillnetOptions Nets(bool logNormal = false) {
    GillnetOptions o;
    o.sampleA = 1;
    o.sampleB = 2;
    o.meshA = 8;
    o.meshB = 10;
    o.logNormal = logNormal;
    return o;
}

TEST(Gillnet, NoiseFreeCatchesGiveBackTheLengthsOfBestSelection) {
    const GillnetResult r = ComputeGillnet(TwoNets(), Nets());
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(Format(r.lA, "0.00"), "20.00");
    EXPECT_EQ(Format(r.lB, "0.00"), "25.00");
    EXPECT_EQ(r.points, 20);
    // The spread is the standard error of a: near 0 on exact data.
    EXPECT_LT(r.s, 1e-3f);

    // Log-normal nets: L(best) = m^1.4, back through exp.
    const GillnetResult ln = ComputeGillnet(TwoNets(true), Nets(true));
    ASSERT_TRUE(ln.ok());
    EXPECT_EQ(Format(ln.lA, "0.00"), Format(std::pow(8.0, 1.4), "0.00"));
    EXPECT_EQ(Format(ln.lB, "0.00"), Format(std::pow(10.0, 1.4), "0.00"));
}

TEST(Gillnet, ChecksComeInOrder) {
    const LfqData d = TwoNets();
    GillnetOptions o = Nets();
    o.meshB.reset();
    EXPECT_EQ(ComputeGillnet(d, o).refusal()->text, kGnIncompleteText);
    o = Nets();
    o.sampleA = 0;
    o.meshA = 12;  // the missing sample is reported before the mesh sizes
    EXPECT_EQ(ComputeGillnet(d, o).refusal()->text, kGnIncompleteText);
    o = Nets();
    o.meshA = 10;
    const auto equal = ComputeGillnet(d, o);
    EXPECT_EQ(equal.refusal()->text, kGnMeshSizesText);
    EXPECT_EQ(equal.refusal()->title, kGnInvalidInputsTitle);
    o.meshA = 0;
    EXPECT_EQ(ComputeGillnet(d, o).refusal()->text, kGnMeshSizesText);
    // Sizes compare as 32-bit values: 8.0000001 and 8 are one size.
    o.meshA = 8;
    o.meshB = static_cast<float>(8.0000001);
    EXPECT_EQ(ComputeGillnet(d, o).refusal()->text, kGnMeshSizesText);
}

TEST(Gillnet, OverlapAndLeftOutClasses) {
    // Three overlapping classes pass, two fail.
    const std::vector<double> a = {5, 9, 7, 3, 0, 0}, b = {0, 2, 6, 8, 4, 0};
    auto r = ComputeGillnet(test::MakeLfq(10, 1, {a, b}), Nets());
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.points, 3);
    EXPECT_FLOAT_EQ(r.lengthX[1], 11);
    EXPECT_FLOAT_EQ(r.lnRatio[1], static_cast<float>(std::log(2.0 / 9)));
    EXPECT_FLOAT_EQ(r.lengthX[3], 13);
    // Left-out classes keep their curves and their rows in the files.
    EXPECT_EQ(GillnetPrbRows(r, 1).size(), 6u);
    EXPECT_GT(r.selectionA[1], 0.f);

    const std::vector<double> b2 = {0, 0, 6, 8, 4, 0};
    const auto few = ComputeGillnet(test::MakeLfq(10, 1, {a, b2}), Nets());
    EXPECT_EQ(few.refusal()->title, kGnInvalidFileTitle);
    EXPECT_EQ(few.refusal()->text, kGnOverlapText);

    // A gap inside the overlap drops out; a ratio of exactly 1 (ln 0) stays in.
    const std::vector<double> c = {4, 4, 0, 4, 4}, e = {4, 6, 5, 8, 9};
    r = ComputeGillnet(test::MakeLfq(10, 1, {c, e}), Nets());
    ASSERT_EQ(r.points, 4);
    EXPECT_EQ(r.lnRatio[1], 0.f);
    EXPECT_FLOAT_EQ(r.lengthX[3], 13);
}

TEST(Gillnet, SlopeOrSpreadOfZeroIsTheDivisionFault) {
    const std::vector<double> a = {4, 5, 6, 7};
    try {
        ComputeGillnet(test::MakeLfq(10, 1, {a, a}), Nets());
        ADD_FAILURE() << "no fault";
    } catch (const ArithmeticFault& f) {
        EXPECT_EQ(f.code(), FaultNumber::DivisionByZero);
    }
}

TEST(Gillnet, SavesThreeFilesWithTheSourceHeader) {
    test::TempDir dir;
    LfqData d = TwoNets();
    d.speciesname = "Net fish";
    d.otherId = "Lake 3";
    d.unitOfMeasurement = "cm";
    const GillnetResult r = ComputeGillnet(d, Nets());
    const GillnetFiles files = GillnetFileNames(dir.file("nets.prb"));
    EXPECT_EQ(files.net2, dir.file("nets2.PRB"));
    EXPECT_EQ(GillnetSaveQuestion("x"),
              "The cummulative probability curve will be saved on x.PRB and the selection curve "
              "for the two gillnets will be saved on x1.PRB and x2.PRB respectively. Do you want "
              "to continue?");
    SavePRBAll(files, test::BinDir().string(), d, r);
    const std::string* paths[] = {&files.sum, &files.net1, &files.net2};
    for (int which = 0; which < 3; ++which) {
        const auto prb = ReadPRB(*paths[which]);
        ASSERT_TRUE(prb) << *paths[which];
        EXPECT_EQ(prb->header.speciesname, "Net fish");
        EXPECT_EQ(prb->header.remarks, kGnPrbRemarks);
        ASSERT_EQ(prb->length.size(), 20u);
        EXPECT_FLOAT_EQ(prb->length[2], 15);
        EXPECT_FLOAT_EQ(prb->probability[6], GillnetPrbRows(r, which)[6].second);
    }
}

}  // namespace
}  // namespace norvo
