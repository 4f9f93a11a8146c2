// A one-line number entry of the designer forms: accepts only numbers in
// the C locale (a point for the decimals, an optional exponent), reads back
// as a number or as "no number", and shows text that is not yet a number
// (a lone "-", "1e", an overflowing exponent) in a warning colour.
#pragma once

#include <optional>

#include <QLineEdit>
#include <QLocale>

class GVRNumberField : public QLineEdit {
    Q_OBJECT
public:
    explicit GVRNumberField(QWidget* parent = nullptr);

    // The number typed, or none for an empty field or text that is not a
    // whole number yet. Never NaN or infinite.
    std::optional<double> numberValue() const;
    // The number typed, 0 when there is none (an empty field reads as 0).
    double doubleValue() const { return numberValue().value_or(0.0); }
    // Shows `value` with up to 15 significant digits, so a conversion such as
    // 48000 × 0.001 reads "48"; a value that is not finite empties the field.
    void setDoubleValue(double value);

    // Whether the field holds text that is not a number (an empty field is fine).
    bool holdsGarbage() const;
    // Marks a field that a design needed and found without a number, until it is edited.
    void flagMissingNumber();
    bool isFlagged() const { return flagged_; }

    // The locale the fields read and write: C, with no group separators.
    static QLocale numberLocale();
    static QString formatNumber(double value);

private:
    void markState();

    bool flagged_ = false;
};
