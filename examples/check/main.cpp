// What is wrong in a rule, and what the rule does in words.
#include <iostream>
#include <string>
#include <vector>

#include "language/check.h"
#include "language/explain.h"

namespace {

using zolt20::StringView;
using zolt20::language::Finding;
using zolt20::language::Names;
using zolt20::language::Node;

std::string Plain(StringView text) {
  return std::string(text.begin(), text.end());
}

}  // namespace

int main() {
  const StringView rule =
      u"select CUSTOMER.C_LSAT,CUSTOMER.C_ID\r\n"
      u"from  CUSTOMER\r\n"
      u"where CUSTOMER.C_ID = round ( :var.id\r\n"
      u"selectdo\r\n"
      u"\tif :var.total > 100 then \r\n"
      u"\t\t:var.size = \"large\"\r\n"
      u"endselect:var.big = 0";
  // The values of PrpStrTables and PrpStrFields.
  const Names names(u"CUSTOMER1",
                    u"char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*the last name,"
                    u"long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*the number of the customer");

  const std::vector<Node> nodes = zolt20::language::ReadOutline(rule);
  for (const Finding& finding : zolt20::language::Check(rule, nodes, &names)) {
    std::cout << finding.line << ":" << finding.column << ": " << NameOf(finding.severity) << ": "
              << Plain(finding.sentence) << " [" << CodeOf(finding.mistake) << "]\n";
  }
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (IsToldByAnother(nodes[i])) continue;
    std::cout << Plain(zolt20::language::Explain(rule, nodes, i)) << "\n";
  }
}
