#pragma once

/// Where help is to be found: on the disk of a desktop, or in the page that a browser shows.
extern const wchar_t SupportText[];
