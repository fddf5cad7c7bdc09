// What the tests of the Where page share: the page opened on a small table, and the choices on it.
#pragma once

#include "tests/support/control_test.h"

namespace zolt20::tests {

constexpr unsigned kWhite = 0xFFFFFF;
constexpr unsigned kInactive = 0x80000003;

inline const Texts kPlainOperators{"!=",      "<",    "<=",         "<>",       "=",
                                   ">",       ">=",   "BETWEEN",    "EXISTS",   "IN",
                                   "INRANGE", "LIKE", "NOT EXISTS", "REFERS TO"};
inline const Texts kFlaggedOperators{
    "!=",      "#<",     "#<=", "#>",      "#>=",  "<>",         "=",
    "BETWEEN", "EXISTS", "IN",  "INRANGE", "LIKE", "NOT EXISTS", "REFERS TO"};

class WherePageTest : public ControlTest {
 protected:
  /// Opens the Where page with the table CUSTOMER, its one index and these fields.
  void Open(const Texts& records) {
    Catalogue("CUSTOMER1", List(records));
    Mark("lsttables", 0);
    Tab(1);
  }
  /// The same with two plain fields A and B and the flagged field F.
  void Open() { Open({Field("NCUSTOMER.A"), Field("NCUSTOMER.B"), Field("YCUSTOMER.F")}); }

  void Choose(std::string_view operand, std::string_view op) {
    Pick("cboWhereFields", operand);
    Pick("cboOper", op);
  }

  /// Gives the control other field records while the lists stay as they are.
  void Rewrite(const Texts& records) {
    host().PrpStrFields(Wide(List(records)));
    EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
  }
};

}  // namespace zolt20::tests
