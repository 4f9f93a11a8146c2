// Number entry of the designer forms.
#include "widgets/number_field.h"

#include <cmath>

#include <QDoubleValidator>

GVRNumberField::GVRNumberField(QWidget* parent) : QLineEdit(parent)
{
    auto* validator = new QDoubleValidator(this);
    validator->setLocale(numberLocale());
    validator->setNotation(QDoubleValidator::ScientificNotation);
    setValidator(validator);
    setAlignment(Qt::AlignRight);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000.000000")));
    // The warning colour follows the text, whoever set it.
    connect(this, &QLineEdit::textChanged, this, [this] {
        flagged_ = false;
        markState();
    });
}

QLocale GVRNumberField::numberLocale()
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    return locale;
}

QString GVRNumberField::formatNumber(double value)
{
    if (!std::isfinite(value))
        return {};
    // -0 would read "-0" after a conversion of an empty field.
    if (value == 0.0)
        value = 0.0;
    return numberLocale().toString(value, 'g', 15);
}

std::optional<double> GVRNumberField::numberValue() const
{
    QString content = text();
    int position = 0;
    if (content.isEmpty() || !validator() ||
        validator()->validate(content, position) != QValidator::Acceptable)
        return std::nullopt;
    bool ok = false;
    const double value = numberLocale().toDouble(content, &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

void GVRNumberField::setDoubleValue(double value)
{
    setText(formatNumber(value));
    setCursorPosition(0);
}

bool GVRNumberField::holdsGarbage() const
{
    return !text().isEmpty() && !numberValue();
}

void GVRNumberField::flagMissingNumber()
{
    flagged_ = true;
    markState();
}

void GVRNumberField::markState()
{
    const bool warn = flagged_ || holdsGarbage();
    if (property("notANumber").toBool() == warn)
        return;
    setProperty("notANumber", warn);
    setStyleSheet(warn ? QStringLiteral("GVRNumberField { background: #fde2e2; }") : QString());
}
