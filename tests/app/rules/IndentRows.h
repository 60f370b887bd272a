#pragma once

#include <QTest>

/** What may be typed as an indentation, and the millimetres and inches that come of it. */
inline void AddIndentRows()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("millimetres");
    QTest::addColumn<QString>("inches");
    const auto row = [](const char* typed, const char* millimetres, const char* inches) {
        QTest::newRow(*typed != '\0' ? typed : "nothing")
            << QString::fromLatin1(typed) << QString::fromLatin1(millimetres) << QString::fromLatin1(inches);
    };
    row("1", "1", "0.0");
    row("10", "10", "0.4");
    row("13", "13", "0.5");
    row("24", "24", "0.9");
    row("25", "25", "1");
    row("26", "26", "1.0");
    row("50", "50", "2");
    row("225", "225", "9");
    row("249", "249", "9.9");
    row("250", "250", "1");
    row("253", "253", "10.1");
    row("254", "254", "10.1");
    row("12.7", "13", "0.5");
    row("12.5", "12", "0.4");
    row("13.5", "14", "0.5");
    row("0.5", "0", "0");
    row("1.5", "2", "0.0");
    row("-0.4", "0", "0");
    row("-0.5", "0", "0");
    row("254.4", "254", "10.1");
    row("254.5", "254", "10.1");
    row("007", "7", "0.2");
    row("1e2", "100", "4");
    row(" 5 ", "5", "0.2");
    row("+5", "5", "0.2");
    row("254.6", "", "0");
    row("255", "", "0");
    row("300", "", "0");
    row("-5", "", "0");
    row("-0.6", "", "0");
    row("99999999999999999999", "", "0");
    row("1e400", "", "0");
    row("nan", "", "0");
    row("inf", "", "0");
    row("-", "", "0");
    row("x", "", "0");
    row("5x", "", "0");
    row("1,5", "", "0");
    row("", "", "0");
}
