// The grid picture as assistive technology sees it: a table whose cells say
// what is in them.

#pragma once

class QAccessibleInterface;
class QObject;
class QString;

// Makes the table for a GridView, nullptr for other objects; for
// QAccessible::installFactory.
QAccessibleInterface* MakeGridAccessible(const QString& className,
                                         QObject* object);
