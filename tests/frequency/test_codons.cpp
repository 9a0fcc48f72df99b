#include "frequency/codons.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace veloria {
namespace {

std::string nameOf(int number) {
    return aminoAcidName(aminoAcidOf(number));
}

// A codon in the letters of its digits, looked up in the genetic code as biology has it.
std::string biologyOf(const std::string& bases) {
    static const std::map<std::string, std::string> wholeFamilies = {
        {"GT", "Val"}, {"TC", "Ser"}, {"CC", "Pro"}, {"AC", "Thr"},
        {"GC", "Ala"}, {"CG", "Arg"}, {"GG", "Gly"}, {"CT", "Leu"}};
    static const std::map<std::string, std::string> beforePyrimidine = {
        // T or C at the end
        {"TT", "Phe"}, {"AT", "Ile"}, {"TA", "Tyr"}, {"CA", "His"},
        {"AA", "Asn"}, {"GA", "Asp"}, {"TG", "Cys"}, {"AG", "Ser"}};
    static const std::map<std::string, std::string> beforePurine = {
        // A or G at the end
        {"TT", "Leu"}, {"TA", "STP"}, {"CA", "Gln"}, {"AA", "Lys"}, {"GA", "Glu"}, {"AG", "Arg"}};
    const std::string pair = bases.substr(0, 2);
    if (bases == "ATG") return "Met";
    if (bases == "ATA") return "Ile";
    if (bases == "TGG") return "Trp";
    if (bases == "TGA") return "STP";
    if (wholeFamilies.count(pair) != 0) return wholeFamilies.at(pair);
    const bool pyrimidine = bases[2] == 'T' || bases[2] == 'C';
    return pyrimidine ? beforePyrimidine.at(pair) : beforePurine.at(pair);
}

TEST(Codons, AllSixtyFourNumbersFollowTheGeneticCode) {
    int count = 0;
    for (int d1 = 1; d1 <= 4; ++d1) {
        for (int d2 = 1; d2 <= 4; ++d2) {
            for (int d3 = 1; d3 <= 4; ++d3, ++count) {
                const std::string bases{"-ATGC"[d1], "-ATGC"[d2], "-ATGC"[d3]};
                EXPECT_EQ(nameOf(100 * d1 + 10 * d2 + d3), biologyOf(bases)) << bases;
            }
        }
    }
    EXPECT_EQ(count, kCodonCount);
}

TEST(Codons, StartAndStopsStandWhereTheyShould) {
    EXPECT_EQ(nameOf(123), "Met");  // A T G
    EXPECT_EQ(aminoAcidOf(123), 3);
    for (const int stop : {211, 213, 231}) {  // TAA, TAG, TGA
        EXPECT_EQ(aminoAcidOf(stop), kStopCodon) << stop;
        EXPECT_EQ(nameOf(stop), "STP") << stop;
    }
}

TEST(Codons, OtherNumbersAreNone) {
    for (const int number : {0, 11, 110, 115, 151, 511, 445, 1111, 666, -111, 401, 140}) {
        EXPECT_EQ(aminoAcidOf(number), kNoCodon) << number;
        EXPECT_EQ(nameOf(number), "") << number;
    }
}

TEST(Codons, NamesEndWithTheirTable) {
    EXPECT_STREQ(aminoAcidName(0), "Phe");
    EXPECT_STREQ(aminoAcidName(19), "Gly");
    EXPECT_STREQ(aminoAcidName(20), "");
}

TEST(Codons, DigitsAreLetters) {
    EXPECT_EQ(baseLetter(1), 'A');
    EXPECT_EQ(baseLetter(2), 'T');
    EXPECT_EQ(baseLetter(3), 'G');
    EXPECT_EQ(baseLetter(4), 'C');
    EXPECT_EQ(baseLetter(0), '\0');
    EXPECT_EQ(baseLetter(5), '\0');
}

}  // namespace
}  // namespace veloria
