// huecraft doctor reads what huecraft-describe writes.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include "describe/report.h"
#include "support/themes.h"

namespace test {
namespace {

using testing::HasSubstr;

class DoctorReads : public DescribedPhone {
  protected:
    /// What doctor says of the report.
    std::string diagnosis(const std::string& report) const {
        std::ofstream(phone.host("/report.txt")) << report;
        const std::string said = phone.host("/said");
        const std::string command = "'" HUECRAFT_COMMAND "' doctor '" + phone.host("/report.txt").string() +
                                    "' > '" + said + "' 2>&1";
        EXPECT_LE(WEXITSTATUS(std::system(command.c_str())), 1);
        return contents_of(said);
    }
};

TEST_F(DoctorReads, WhatWasDescribed) {
    install_library();
    arrange_theme(phone);
    EXPECT_THAT(diagnosis(report()), HasSubstr("10 of 10 things would be found"));
}

TEST_F(DoctorReads, ThatAHookHadNoEffect) {
    install_library();
    arrange_theme(phone);
    const std::string said = diagnosis(report({}, {.unfound = {"-[UIKBEdgeEffect edges]"}}));
    EXPECT_THAT(said, HasSubstr("-[UIKBEdgeEffect edges]"));
    EXPECT_THAT(said, HasSubstr("no effect"));
}

}  // namespace
}  // namespace test
