#pragma once

#include <string>

#include "comm/calibration/commands.h"
#include "model/language/resource_texts.h"

namespace calyx {

// What stands on a calibration certificate.
struct CalibrationCertificate {
    int scale = 0;
    std::string alias{};      // of the scale; may be empty
    std::string units{};      // of the weights: "LB"
    std::string indicator{};  // what it answers to VERSION
    std::string where{};      // the way to it
    std::string date{};       // and time, as it is to be read
    std::string who{};        // did it
    std::string document{};   // name of the configuration; may be empty
    CalibrationValues before, after;
};

// The certificate as lines of plain text, each ended by LF, and as a page of HTML that prints on one sheet.
// Texts of the document are passed on as bytes; in HTML the signs that mean something there are escaped.
std::string CertificateText(const CalibrationCertificate& certificate, const ResourceTexts& texts);
std::string CertificateHtml(const CalibrationCertificate& certificate, const ResourceTexts& texts);

}  // namespace calyx
