// The list of serial ports, from folders as the kernel has them.

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/posix/serial_ports.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

TEST(SerialPorts, ThoseThatAreThereWithWhatTheyAre) {
    const TestFolder folder;
    const std::filesystem::path root = folder.File("sys");
    const auto device = [&](const std::string& name, const std::string& at) {
        std::filesystem::create_directories(root / "devices" / at);
        std::filesystem::create_directories(root / "tty" / name);
        std::filesystem::create_directory_symlink(root / "devices" / at, root / "tty" / name / "device");
    };
    device("ttyUSB10", "usb1/1-1/1-1:1.0/ttyUSB10");
    device("ttyUSB2", "usb1/1-2/1-2:1.0/ttyUSB2");
    device("ttyS0", "board/ttyS0");
    device("ttyS1", "board/ttyS1");
    std::filesystem::create_directories(root / "tty" / "tty7");  // a console: no device
    folder.Put("sys/devices/usb1/1-1/product", "USB-Serial Controller\n");
    folder.Put("sys/devices/usb1/1-1/manufacturer", "Example Inc.\n");
    folder.Put("sys/devices/usb1/1-2/product", "FT232\n");
    folder.Put("sys/tty/ttyS0/type", "4\n");
    folder.Put("sys/tty/ttyS1/type", "0\n");  // a place without a chip
    const std::vector<SerialPortInfo> expected{{"/dev/ttyS0", ""},
                                               {"/dev/ttyUSB2", "FT232"},
                                               {"/dev/ttyUSB10", "Example Inc. USB-Serial Controller"}};
    EXPECT_EQ(platform::SerialPortsIn(root / "tty"), expected);
    EXPECT_TRUE(platform::SerialPortsIn(root / "nowhere").empty());
}

}  // namespace
}  // namespace calyx
