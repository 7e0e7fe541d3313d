-- composePredicate: equal text (condition)
Citta = 'L''Aquila'
GO

-- composePredicate: equal number (condition)
CG44_CLIFOR = 1007
GO

-- composePredicate: different text (condition)
(Citta <> 'Forlì' OR Citta IS NULL)
GO

-- composePredicate: different number (condition)
(CG44_CLIFOR <> 1007 OR CG44_CLIFOR IS NULL)
GO

-- composePredicate: range of texts (condition)
Citta BETWEEN 'F' AND 'G'
GO

-- composePredicate: range of numbers (condition)
CG44_CLIFOR BETWEEN 1003 AND 1007
GO

-- composePredicate: range without an end (condition)
CG44_CLIFOR >= 1250
GO

-- composePredicate: range without a beginning (condition)
CG44_CLIFOR <= 1007
GO

-- composePredicate: text that starts (condition)
Citta LIKE 'For%'
GO

-- composePredicate: text that contains (condition)
Citta LIKE '%[_]a[[][%]%'
GO

-- composePredicate: one of texts (condition)
Citta IN ('Forlì', 'L''Aquila')
GO

-- composePredicate: one of numbers (condition)
CG44_CLIFOR IN (1003, 1007)
GO

-- composePredicate: empty text (condition)
(Citta IS NULL OR Citta = '')
GO

-- composePredicate: empty number (condition)
CG44_CLIFOR IS NULL
GO

-- composePredicate: text that is not empty (condition)
Citta <> ''
GO

-- composePredicate: number that is not empty (condition)
CG44_CLIFOR IS NOT NULL
GO

-- composeConjunction (condition)
 AND (Citta = 'Forlì') AND (Provincia = 'FC')
GO
