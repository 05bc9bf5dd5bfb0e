#pragma once

#include <cerrno>
#include <cstdio>
#include <streambuf>
#include <system_error>

namespace calyx::cli {

// Writes to a C stream and keeps the reason of the first failure, which a standard stream forgets.
class OutputBuffer final : public std::streambuf {
  public:
    explicit OutputBuffer(std::FILE* file) : file_(file) {}

    std::error_code Failure() const { return failure_; }

  protected:
    std::streamsize xsputn(const char* bytes, std::streamsize count) override {
        const std::size_t written = std::fwrite(bytes, 1, static_cast<std::size_t>(count), file_);
        if (written != static_cast<std::size_t>(count)) Keep();
        return static_cast<std::streamsize>(written);
    }
    int_type overflow(int_type c) override {
        if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
        if (std::fputc(c, file_) != EOF) return c;
        Keep();
        return traits_type::eof();
    }
    int sync() override {
        if (std::fflush(file_) == 0) return 0;
        Keep();
        return -1;
    }

  private:
    void Keep() {
        if (!failure_) failure_.assign(errno, std::generic_category());
    }

    std::FILE* file_;
    std::error_code failure_;
};

}  // namespace calyx::cli
