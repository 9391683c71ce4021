-- Version 1 to 2: attributes stand once for all runs that have the same.
CREATE TABLE attribute_set(id INTEGER PRIMARY KEY, attributes TEXT NOT NULL UNIQUE);
INSERT INTO attribute_set(attributes) SELECT DISTINCT attributes FROM run_values WHERE attributes IS NOT NULL;
ALTER TABLE run_values RENAME COLUMN attributes TO attributes_text;
ALTER TABLE run_values ADD COLUMN attributes INTEGER REFERENCES attribute_set;
UPDATE run_values SET attributes = (SELECT id FROM attribute_set s WHERE s.attributes = attributes_text);
ALTER TABLE run_values DROP COLUMN attributes_text;
PRAGMA user_version = 2;
