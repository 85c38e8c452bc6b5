-- The rows of the demonstration's database. The empty folder of type 1 stands for the template folder of the CAD host,
-- the others for the library's own.
DELETE FROM Typen;
INSERT INTO Typen VALUES
    (1, 'Vorlagen', NULL, 'Zeichnungsvorlagen des Büros'),
    (2, 'Stempelfelder', NULL, 'Schriftfelder für alle Blattgrößen'),
    (3, 'Blattränder', NULL, 'Rahmen mit Faltmarken'),
    (4, 'Nordpfeile', NULL, NULL),
    (5, 'Schilder', NULL, 'Hinweisschilder und Türschilder'),
    (6, 'Straßenzubehör', 'C:\Tarvix\Straßenzubehör', 'Maße in Metern'),
    (7, 'Legenden', NULL, 'Zeichenerklärungen');
INSERT INTO Bloecke VALUES
    (1, 2, 101, 'TX_STEMPEL_A4', 'Stempelfeld A4', 20, 10, 0, 1, 1, 1, 0, 'TX_STEMPEL'),
    (2, 2, 102, 'TX_STEMPEL_A3', 'Stempelfeld A3', 230, 10, 0, 1, 1, 1, 0, 'TX_STEMPEL'),
    (3, 2, 103, 'TX_STEMPEL_A0', 'Stempelfeld A0', 999, 10, 0, 1, 1, 1, 0, 'TX_STEMPEL'),
    (4, 3, 104, 'TX_RAND_A3', 'Blattrand A3', 0, 0, 0, 1, 1, 1, 0, 'TX_RAND'),
    (5, 4, 105, 'TX_NORDPFEIL', 'Nordpfeil', 380.5, 255, 0, 1.5, 1.5, 1.5, 0.5235987755982988, 'TX_PLAN'),
    (6, 4, 106, 'TX_NORDROSE', 'Nordpfeil mit Windrose', 370, 250, 0, 1, 1, 1, 0.7853981633974483, NULL),
    (7, 7, 107, 'TX_LEGENDE', 'Legende groß', 20, 120, 0, 1, 1, 1, 0, 'TX_LEGENDE'),
    (8, 7, 108, 'TX_LEGENDE_KLEIN', 'Legende klein', 20, 200, 0, 0.5, 0.5, 0.5, 0, NULL),
    (9, 5, 109, 'TX_TUERSCHILD', 'Türschild', 0, 0, 0, 1, 1, 1, 1.5707963267948966, NULL);
