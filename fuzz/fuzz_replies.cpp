// Any bytes as the controller's reply: the module's reading and the host's conversions take it or
// leave their results alone, and take nothing that is not a finite number.
#include "controller/replytext.h"
#include "fuzz/support/require.h"
// The conversions are private to the gateway's file, where nothing else is in the way of an input.
#include "host/connection/gateway.cpp"

#include <cmath>
#include <cstdint>
#include <string>

static void read_as_module(const std::string& text)
{
    double values[12] = {};
    const bool read = reply_numbers(text.c_str(), 12, values);
    for (int i = 0; i < 12; ++i) {
        bool ok = false;
        const double value = reply_number(text.c_str(), i, &ok);
        require(std::isfinite(value) && (ok || value == 0.0));
        require(values[i] == (read ? value : 0.0) && (ok || !read));
    }
}

static void convert_as_host(const Reply& reply)
{
    constexpr double untouched = 4711.0;
    int number = 4711;
    require(convert(reply, &number) == succeeded || number == 4711);
    double real = untouched;
    require(convert(reply, &real) == succeeded || real == untouched);
    bool truth = true;
    require(convert(reply, &truth) == succeeded || truth);
    double list[9] = {untouched, untouched, untouched};
    require(convert(reply, list, 3) == succeeded || (list[0] == untouched && list[2] == untouched));
    require(list[3] == 0.0);
    char buffer[IOManager::buffer_size + 1] = {};
    buffer[IOManager::buffer_size] = '!';
    require(copy_text(buffer, reply.text) == succeeded || buffer[0] == '\0');
    require(buffer[IOManager::buffer_size] == '!');
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    read_as_module(text);
    convert_as_host({Reply::done, QByteArray::fromStdString(text)});
    convert_as_host({Reply::refused, QByteArray::fromStdString(text)});
    return 0;
}
