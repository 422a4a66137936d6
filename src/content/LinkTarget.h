// What the target of a page's link means. The course screen follows links by it, the course kit checks them.
#pragma once

#include <QString>

struct LinkTarget {
  enum class Form {
    Address,      // the web's, for the desktop's opener
    Document,     // an attachment of the course
    Page,         // a page of a module
    PageAndPlace  // a file beside the program as it stands, with a place in it
  };

  Form What = Form::Document;
  QString Text;    // the whole target without trailing blanks and capitals
  QString Module;  // of a page; a target of another length than a page's gives an id that no module has
  QString Page;    // of a page: its name; with a place: the file's name
  QString Place;   // of a page, where the target ends with "#" and a place; empty for the top
};

// The target of a link that is no place on its own page. Capitals and trailing blanks don't count.
LinkTarget ReadLinkTarget(QString target);

// The target of a page's link to another page, "rt0102\0007.txm_" or "rt0102\0007.txm_#place".
QString PageTarget(const QString& moduleId, const QString& page, const QString& place = {});
