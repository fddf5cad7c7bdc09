// Texts and numbers that mean something to the control, and near misses of them, made up from the
// bytes of an input.
#pragma once

#include <array>
#include <cstddef>

#include "surface/surface.h"
#include "tests/support/choices.h"

namespace zolt20::fuzz {

using Choices = tests::ByteChoices;

/// Words that a handler or property looks for, and near misses of them.
inline constexpr std::array kWords{
    StringView(u""),
    StringView(u" "),
    StringView(u"~"),
    StringView(u"\r\n"),
    StringView(u"\t"),
    StringView(u"\u0001"),
    StringView(u"\r\n\t"),
    StringView(u"~\u0001"),
    StringView(u","),
    StringView(u"*zlt*"),
    StringView(u"`^`"),
    StringView(u"("),
    StringView(u")"),
    StringView(u" ) "),
    StringView(u"sum ( "),
    StringView(u"avg"),
    StringView(u"count ( * ) "),
    StringView(u"COUNT ( "),
    StringView(u"*"),
    StringView(u".*"),
    StringView(u"._index1"),
    StringView(u"_index"),
    StringView(u"index"),
    StringView(u":"),
    StringView(u":var.x"),
    StringView(u" desc"),
    StringView(u"DESC"),
    StringView(u"select "),
    StringView(u"Select"),
    StringView(u"from "),
    StringView(u"dump "),
    StringView(u"endselect"),
    StringView(u"*Q*V*R*N*"),
    StringView(u"0"),
    StringView(u"1"),
    StringView(u"12"),
    StringView(u"-1"),
    StringView(u"2.5"),
    StringView(u"1e3"),
    StringView(u"x"),
    StringView(u"name = 1"),
    StringView(u"CUSTOMER"),
    StringView(u"customer"),
    StringView(u"CUSTOMER.CUST_NO"),
    StringView(u"CUSTOMER.reindex"),
    StringView(u"ORDERS__"),
    StringView(u"ORDERS__.TOTAL"),
    StringView(u"avg_____"),
    StringView(u"EXISTS"),
    StringView(u"#<="),
    StringView(u"\u00C4\u00E4\u20AC"),
    StringView(u"\"\\"),
};

/// Up to 40 rows of a list or combo box, `between` standing between two of them.
inline String JoinedRows(const RowsControl& list, StringView between, bool onlyMarked) {
  constexpr int kMost = 40;
  const auto* marks = dynamic_cast<const ListBox*>(&list);
  String text;
  for (int row = 0; row < list.ListCount() && row < kMost; ++row) {
    if (onlyMarked && marks != nullptr && !marks->Selected(row)) continue;
    if (!text.empty()) text += between;
    text += list.List(row);
  }
  return text;
}

/// A text of up to seven pieces: words, rows of the form's lists, single characters.
inline String TakeText(Choices& choices, const Surface& form) {
  constexpr std::array kBetween{StringView(u""),     StringView(u","), StringView(u" "),
                                StringView(u"\r\n"), StringView(u"~"), StringView(u"~\u0001")};
  const std::array<const RowsControl*, 8> lists{
      &form.lsttables, &form.lstFields,     &form.lstSelectedFields, &form.lstGroupby,
      &form.cboOper,   &form.lstorderbyasc, &form.lstorderbydesc,    &form.cboWhereFields};
  constexpr int kRow = 200;
  constexpr int kRows = 220;
  constexpr int kLong = 235;
  constexpr int kAny = 240;

  const int shape = choices.Byte();
  const StringView between = kBetween[static_cast<std::size_t>(shape / 8) % kBetween.size()];
  String text;
  for (int piece = 0; piece < shape % 8; ++piece) {
    if (piece > 0) text += between;
    const int what = choices.Byte();
    if (what < kRow) {
      text += kWords[static_cast<std::size_t>(what) % kWords.size()];
    } else if (what < kRows) {
      const RowsControl& list = *choices.From(lists);
      text += list.List(choices.Below(list.ListCount()));
    } else if (what < kLong) {
      text += JoinedRows(*choices.From(lists), u",", choices.OneIn(2));
    } else if (what < kAny) {
      text += String(static_cast<std::size_t>(choices.Below(600)), u'y');
    } else {
      text += static_cast<char16_t>(choices.Below(0x10000));
    }
  }
  return text;
}

/// Most often a small number that has a meaning, seldom one near the limits of 16 bits.
inline Integer TakeInteger(Choices& choices) {
  constexpr std::array kFar{-32768, -32767, -2, -1, 7, 9, 100, 127, 32766, 32767};
  constexpr int kSeldom = 240;
  const int what = choices.Byte();
  return what < kSeldom ? what % 7 : choices.From(kFar);
}

/// A value of PrpStrTables. `mayBeLarge` allows index counts up to the greatest possible.
inline String TakeTables(Choices& choices, bool mayBeLarge) {
  constexpr std::array kEntries{StringView(u"CUSTOMER2"),     StringView(u"ORDERS__0"),
                                StringView(u"ORDRLINE12"),    StringView(u"avg_____1"),
                                StringView(u"customer1"),     StringView(u"count___0"),
                                StringView(u"SHORT1"),        StringView(u"CUSTOMER"),
                                StringView(u"CUSTOMERx"),     StringView(u"NOFIELDS3"),
                                StringView(u"ORDERS__-3"),    StringView(u"ORDERS__ 2.5 "),
                                StringView(u"ORDERS__40000"), StringView(u""),
                                StringView(u"A*B)C D:1"),     StringView(u"ORDERS__1e1"),
                                StringView(u"ORDERS__+.5"),   StringView(u"        1")};
  constexpr StringView kLarge = u"CUSTOMER32767";
  const int shape = choices.Byte();
  if (shape < 128) return u"CUSTOMER2,ORDERS__0,ORDRLINE1,avg_____1";
  String tables;
  for (int i = 0; i < shape % 8; ++i) {
    if (i > 0) tables += u',';
    tables += choices.From(kEntries);
  }
  if (mayBeLarge && shape == 255 && choices.Byte() == 255) tables += kLarge;
  return tables;
}

/// A value of PrpStrFields, now and then with a malformed record.
inline String TakeFields(Choices& choices) {
  constexpr std::array kNames{StringView(u"CUSTOMER.CUST_NO"),
                              StringView(u"CUSTOMER.reindex"),
                              StringView(u"CUSTOMER.re_index"),
                              StringView(u"ORDERS__.TOTAL"),
                              StringView(u"ORDERS__.desc_no"),
                              StringView(u"ORDERS__.from "),
                              StringView(u"ORDRLINE.QTY"),
                              StringView(u"avg_____.A"),
                              StringView(u"avg_____.A)"),
                              StringView(u"customer.Cust_No"),
                              StringView(u"count___.N"),
                              StringView(u"A*B)C D:.X*"),
                              StringView(u"        . "),
                              StringView(u"CUSTOMER."),
                              StringView(u"X"),
                              StringView(u"")};
  constexpr std::array kFlags{StringView(u"N"), StringView(u"Y"), StringView(u""),
                              StringView(u"y")};
  constexpr StringView kSeparates = u"*Q*V*R*N*";
  const int shape = choices.Byte();
  String fields;
  if (shape < 192) {
    fields =
        u"long*Q*V*R*N*NCUSTOMER.CUST_NO*Q*V*R*N*X,char*Q*V*R*N*YCUSTOMER.NAME*Q*V*R*N*,"
        u"long*Q*V*R*N*NORDERS__.CUST_NO*Q*V*R*N*X,decimal*Q*V*R*N*YORDERS__.TOTAL*Q*V*R*N*X,"
        u"long*Q*V*R*N*NORDRLINE.reindex*Q*V*R*N*X,long*Q*V*R*N*Navg_____.A*Q*V*R*N*X";
  }
  for (int i = 0; i < shape % 8; ++i) {
    if (!fields.empty()) fields += u',';
    const int parts = choices.Byte();
    fields += u"long";
    if (parts != 255) {
      fields += Concat(kSeparates, choices.From(kFlags), choices.From(kNames));
    }
    if (parts < 240) fields += Concat(kSeparates, u"rest");
    if (parts == 253) fields += Concat(kSeparates, u"N", choices.From(kNames));
  }
  return fields;
}

}  // namespace zolt20::fuzz
