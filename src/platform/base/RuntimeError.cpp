// SPDX-License-Identifier: MIT
#include "platform/base/RuntimeError.hpp"

#include <utility>

#include "platform/base/Lookup.hpp"

namespace mobrel {

namespace {

ErrorPolicy g_errorPolicy = ErrorPolicy::EndRun;

using enum ErrorNumber;
constexpr std::pair<ErrorNumber, const char*> kTexts[] = {
    {InvalidCall, "Invalid procedure call or argument"},
    {Overflow, "Overflow"},
    {OutOfMemory, "Out of memory"},
    {SubscriptOutOfRange, "Subscript out of range"},
    {DivisionByZero, "Division by zero"},
    {TypeMismatch, "Type mismatch"},
    {LibraryNotLoaded, "Error in loading DLL"},
    {BadFileName, "Bad file name or number"},
    {FileNotFound, "File not found"},
    {FileAlreadyOpen, "File already open"},
    {DeviceIoError, "Device I/O error"},
    {DiskFull, "Disk full"},
    {TooManyFiles, "Too many files"},
    {PermissionDenied, "Permission denied"},
    {PathFileAccess, "Path/File access error"},
    {PathNotFound, "Path not found"},
    {ObjectNotSet, "Object variable or With block variable not set"},
    {InvalidPropertyValue, "Invalid property value"},
    {InvalidPropertyIndex, "Invalid property array index"},
    {InvalidPicture, "Invalid picture"},
};

}  // namespace

void setErrorPolicy(ErrorPolicy policy) noexcept {
    g_errorPolicy = policy;
}

ErrorPolicy errorPolicy() noexcept {
    return g_errorPolicy;
}

const char* errorText(ErrorNumber number) noexcept {
    return valueIn(kTexts, number, "Application-defined or object-defined error");
}

}  // namespace mobrel
