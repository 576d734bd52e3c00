#pragma once

#include <QString>

/// Why the document writer could not do what it was asked for, handed out through an argument of its operations.
struct KXPSDError
{
    enum Code
    {
        ZeroDocumentSize = 1, ///< a layer before a size
        NoVisibleLayers = 2,
        NoOpenedLayer = 3,
        SizeOutOfRange = 4, ///< sides that are no whole pixels from 1 to 30,000
        TooMuchForFile = 5, ///< more layers, longer rows or more bytes than the format has room for
        OutOfMemory = 6,
        Cancelled = 7, ///< the progress said so
    };

    QString domain; ///< "example.wallwright.psd"
    int code = 0;
    QString message; ///< what, and where it helps what to do

    /// Fills in `error` where there is one. Returns false, as what failed does:
    /// `return KXPSDError::tell(error, KXPSDError::Cancelled, "...");`
    static bool tell(KXPSDError *error, Code code, const QString &message)
    {
        if (error)
            *error = {"example.wallwright.psd", code, message};
        return false;
    }
    /// The same for the memory that the document as a whole takes.
    static bool tellOutOfMemory(KXPSDError *error)
    {
        return tell(error, OutOfMemory, "There is not enough memory to make the layered document.");
    }
};
