#include "cli/json_writer.h"

#include <cmath>
#include <cstdio>

void JsonWriter::separate()
{
    if (needComma_)
        out_ += ',';
    needComma_ = true;
}

void JsonWriter::beginObject()
{
    separate();
    out_ += '{';
    needComma_ = false;
}

void JsonWriter::endObject()
{
    out_ += '}';
    needComma_ = true;
}

void JsonWriter::beginArray()
{
    separate();
    out_ += '[';
    needComma_ = false;
}

void JsonWriter::endArray()
{
    out_ += ']';
    needComma_ = true;
}

void JsonWriter::key(std::string_view name)
{
    value(name);
    out_ += ':';
    needComma_ = false;
}

void JsonWriter::value(double v)
{
    separate();
    if (!std::isfinite(v)) {
        out_ += "null";
        return;
    }
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    out_ += buf;
}

void JsonWriter::value(std::int64_t v)
{
    separate();
    out_ += std::to_string(v);
}

void JsonWriter::value(bool v)
{
    separate();
    out_ += v ? "true" : "false";
}

void JsonWriter::null()
{
    separate();
    out_ += "null";
}

void JsonWriter::value(std::string_view s)
{
    separate();
    out_ += '"';
    for (const char c : s) {
        const auto u = static_cast<unsigned char>(c);
        switch (c) {
        case '"':
            out_ += "\\\"";
            break;
        case '\\':
            out_ += "\\\\";
            break;
        case '\n':
            out_ += "\\n";
            break;
        case '\r':
            out_ += "\\r";
            break;
        case '\t':
            out_ += "\\t";
            break;
        default:
            if (u < 0x20) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\u%04x", u);
                out_ += buf;
            } else {
                out_ += c; // UTF-8 passes through unchanged
            }
        }
    }
    out_ += '"';
}

void JsonWriter::array(std::span<const double> values)
{
    beginArray();
    for (const double v : values)
        value(v);
    endArray();
}

void JsonWriter::array(std::span<const std::int64_t> values)
{
    beginArray();
    for (const std::int64_t v : values)
        value(v);
    endArray();
}
