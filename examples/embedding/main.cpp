// A complete small host: it hands over a catalogue, answers one request, and takes the statement
// when the user is done. What the user does comes from a face; here the gestures stand in the
// program.
#include <iostream>
#include <string>

#include "shell/control.h"

namespace {

using zolt20::String;

std::string Plain(const String& text) {
  std::string plain;
  for (const char16_t c : text) {
    if (c != u'\r') plain += static_cast<char>(c);
  }
  return plain;
}

class Host final : public zolt20::ControlHost {
 public:
  Host() : control_(*this) {
    control_.UserControl_InitProperties();
    control_.PrpStrTables(u"CUSTOMER1,ORDERS__2");
    control_.PrpStrFields(
        u"long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*the number of the customer,"
        u"char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*the last name,"
        u"long*Q*V*R*N*NORDERS__.O_C_ID*Q*V*R*N*who ordered");
  }

  zolt20::ZOLT20MapControl& Control() { return control_; }

  void eventCancel() override {}
  void eventDone() override {
    std::cout << Plain(control_.prpStroutput()) << "\n\n"
              << Plain(control_.prpstrSelectedFields()) << "\n";
  }
  void eventSubQuery() override {
    // One line: "~" stands for a line break, the character of code 1 for a tab.
    if (control_.prpStrSQLPart() == u"D") {
      control_.prpSelectDoPart(u"select ORDERS__.O_C_ID~from  ORDERS__~endselect");
    }
  }
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view) override {}
  void ShowMessage(const zolt20::Message& message) override {
    std::cout << Plain(String(message.title)) << ": " << Plain(String(message.text)) << "\n";
  }

 private:
  zolt20::ZOLT20MapControl control_;
};

}  // namespace

int main() {
  Host host;
  zolt20::ZOLT20MapControl& control = host.Control();
  const zolt20::Surface& form = control.Form();

  control.UserClick(form.lsttables, 0);
  control.UserClick(form.cmdMoveOne);  // no field is marked yet: a message
  control.UserClick(form.lstFields, 1);
  control.UserClick(form.cmdMoveOne);
  control.UserClick(form.cmdAddSelect);
  control.UserTab(2);
  control.UserClick(form.cmdSubQuery(0));
  control.UserClick(form.cmdAddSelectDoQuer);
  control.UserClick(form.cmdDone);
}
