// Streams that break at one byte.
#pragma once

#include <cstddef>
#include <ios>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace faults {

// How a stream breaks: it ends, it throws from inside, which the stream class turns into its bad state, or the stream is one
// that throws at its bad state.
enum class Break { ends, throws, passesThrough };

// Gives the bytes before the break; can be positioned among them.
class BreakingInput : public std::streambuf {
public:
    BreakingInput(std::string& text, std::size_t breakAt, Break how) : how_(how) {
        setg(text.data(), text.data(), text.data() + breakAt);
    }
    bool hasBroken() const { return hasBroken_; }

protected:
    int_type underflow() override {
        if (gptr() != egptr()) return traits_type::to_int_type(*gptr());
        hasBroken_ = true;
        if (how_ != Break::ends) throw std::runtime_error("the stream is broken");
        return traits_type::eof();
    }
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override {
        const off_type base = from == std::ios_base::beg ? 0 : from == std::ios_base::cur ? gptr() - eback() : egptr() - eback();
        return seekpos(base + offset, std::ios_base::in);
    }
    pos_type seekpos(pos_type position, std::ios_base::openmode) override {
        const off_type offset = position;
        if (offset < 0 || offset > egptr() - eback()) return pos_type(off_type(-1));
        setg(eback(), eback() + offset, egptr());
        return position;
    }

private:
    const Break how_;
    bool hasBroken_ = false;
};

// Takes the bytes before the break.
class BreakingOutput : public std::streambuf {
public:
    BreakingOutput(std::size_t breakAt, Break how) : breakAt_(breakAt), how_(how) {}

    const std::string& taken() const { return taken_; }
    bool hasBroken() const { return hasBroken_; }

protected:
    int_type overflow(int_type character) override {
        if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
        if (taken_.size() != breakAt_) {
            taken_.push_back(traits_type::to_char_type(character));
            return character;
        }
        hasBroken_ = true;
        if (how_ != Break::ends) throw std::runtime_error("the stream is broken");
        return traits_type::eof();
    }

private:
    const std::size_t breakAt_;
    const Break how_;
    std::string taken_;
    bool hasBroken_ = false;
};

}  // namespace faults
