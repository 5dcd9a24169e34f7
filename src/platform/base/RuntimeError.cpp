// SPDX-License-Identifier: MIT
#include "platform/base/RuntimeError.hpp"

namespace mobrel {

namespace {

ErrorPolicy g_errorPolicy = ErrorPolicy::EndRun;

}  // namespace

void setErrorPolicy(ErrorPolicy policy) noexcept {
    g_errorPolicy = policy;
}

ErrorPolicy errorPolicy() noexcept {
    return g_errorPolicy;
}

const char* errorText(ErrorNumber number) noexcept {
    switch (number) {
        case ErrorNumber::InvalidCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::DivisionByZero:
            return "Division by zero";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::LibraryNotLoaded:
            return "Error in loading DLL";
        case ErrorNumber::BadFileName:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::FileAlreadyOpen:
            return "File already open";
        case ErrorNumber::DeviceIoError:
            return "Device I/O error";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::TooManyFiles:
            return "Too many files";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccess:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::ObjectNotSet:
            return "Object variable or With block variable not set";
        case ErrorNumber::InvalidPropertyValue:
            return "Invalid property value";
        case ErrorNumber::InvalidPropertyIndex:
            return "Invalid property array index";
        case ErrorNumber::InvalidPicture:
            return "Invalid picture";
    }
    return "Application-defined or object-defined error";
}

}  // namespace mobrel
