-- Version 3 to 4: tables on a server are as they were.
UPDATE archive_meta SET version = 4;
