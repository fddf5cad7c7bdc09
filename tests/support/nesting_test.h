// A person at the Condition page who composes nestings.
#pragma once

#include "tests/support/control_test.h"
#include "tests/support/nestings.h"

namespace zolt20::tests {

class NestingTest : public ControlTest {
 protected:
  NestingTest() { Tab(6); }

  void Fill(const std::string& box, const std::string& text) {
    if (!text.empty()) Type(box, text);
  }

  void Add(const Construct& construct) {
    switch (construct.kind) {
      case Kind::kIf:
        Click("optIfThen");
        Fill("txtCond", construct.head);
        Fill("txtStmt1", construct.statement);
        Fill("txtStmt2", construct.elseStatement);
        break;
      case Kind::kFor:
        Click("optFor");
        Fill("txtVariable", construct.head);
        Fill("txtinitval", construct.first);
        Fill("txtFinVal", construct.last);
        Fill("txtStep", construct.step);
        Fill("txtForStmt", construct.statement);
        break;
      case Kind::kWhile:
        Click("optwhile");
        Fill("txtWhlCnd", construct.head);
        Fill("txtWhlStm", construct.statement);
        break;
      case Kind::kRepeat:
        Click("optRepeat");
        Fill("txtRepCnd", construct.head);
        Fill("txtRepStm", construct.statement);
        break;
      case Kind::kCase:
        Click("optCase");
        Fill("txtcaseexp", construct.head);
        Fill("TxtDef", construct.defaultStatement);
        for (std::size_t i = 0; i < construct.rows.size(); ++i) {
          if (i > 0) Click("cmdNext");
          const std::string index = "(" + std::to_string(i) + ")";
          Fill("TxtExpr" + index, construct.rows[i].value);
          Fill("txtStmt" + index, construct.rows[i].statement);
        }
        break;
    }
    Click("cmdAdd");
  }

  void AddAndBuild(const Nesting& nesting) {
    for (const Construct& construct : nesting)
      Add(construct);
    Click("cmdBuild");
  }
};

}  // namespace zolt20::tests
