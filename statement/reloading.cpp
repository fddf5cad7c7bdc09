// The stored parts of a statement that come back from the host.
#include <utility>

#include "shell/control.h"

namespace zolt20 {

void ZOLT20MapControl::prpSelectPart(String selectList) {
  mPrpSelectPart = std::move(selectList);
  host_.PropertyChanged("prpSelectPart");
}

void ZOLT20MapControl::prpSelectFromPart(String tables) {
  mPrpSelectFromPart = std::move(tables);
  host_.PropertyChanged("prpSelectFromPart");
}

void ZOLT20MapControl::prpSelectGroupbyPart(String fields) {
  mPrpSelectGroupbyPart = std::move(fields);
  host_.PropertyChanged("prpSelectGroupbyPart");
}

void ZOLT20MapControl::prpSelectOrderbyPart(String fields) {
  mPrpSelectOrderbyPart = std::move(fields);
  host_.PropertyChanged("prpSelectOrderbyPart");
}

void ZOLT20MapControl::prpSelectAsSetPart(String rows) {
  mPrpSelectAsSetPart = std::move(rows);
  host_.PropertyChanged("prpSelectAsSetPart");
}

}  // namespace zolt20
