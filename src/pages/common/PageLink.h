// Links of a page: how kind and target are kept in the href of an anchor. The readers make them,
// the text control reads them back.
#pragma once

#include <QString>

struct PageLink {
  static constexpr int kFile = 1;   // the target names a file, an address, or "file#place"
  static constexpr int kPlace = 2;  // the target names a place on the same page

  int Kind = 0;  // 0: not a link
  QString Target;

  bool operator==(const PageLink&) const = default;
};

// The href of a link. It survives QUrl unchanged, whatever the target holds.
QString HrefOfLink(const PageLink& link);

// The link behind an href; kind 0 for any text that HrefOfLink did not make.
PageLink LinkOfHref(const QString& href);
