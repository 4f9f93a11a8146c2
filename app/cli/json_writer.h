// A small JSON writer for the command line's --json output. Numbers are
// printed with 17 significant digits so a double survives the round trip;
// NaN and infinities, which JSON cannot hold, are written as null.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class JsonWriter {
public:
    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);

    void value(double v);
    void value(std::int64_t v);
    void value(int v) { value(static_cast<std::int64_t>(v)); }
    void value(bool v);
    void value(std::string_view s);
    void value(const char* s) { value(std::string_view(s)); }
    void null();
    // The value, or null where it does not apply.
    template <class T> void value(const std::optional<T>& v)
    {
        if (v)
            value(*v);
        else
            null();
    }
    void array(std::span<const double> values);
    void array(std::span<const std::int64_t> values);

    const std::string& text() const { return out_; }

private:
    void separate();

    std::string out_;
    bool needComma_ = false;
};
