// What a screen reader is told of a page: its words, and its links as children that can be followed.
#pragma once

class TextControl;

// Makes every text control tell of its page. Once is enough, more does no harm.
void InstallPageAccess();

// The page is another one; a link got the focus. The screen reader hears of it.
void TellPageChanged(TextControl& page);
void TellLinkFocus(TextControl& page);
